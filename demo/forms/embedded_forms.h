#pragma once

namespace vorn::demo {

// The texts of the .form files of this folder, compiled in at build time; one constant per file.
extern const char* const chart_form;

} // namespace vorn::demo
