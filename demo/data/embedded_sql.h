#pragma once

namespace vorn::demo {

// The texts of the .sql files of this folder, compiled in at build time; one constant per file.
extern const char* const schema_sql;
extern const char* const tables_of_codes_sql;
extern const char* const patient_adult_sql;
extern const char* const patient_child_sql;
extern const char* const spread_treatments_sql;
extern const char* const symbol_tables_sql;
extern const char* const symbols_sql;

} // namespace vorn::demo
