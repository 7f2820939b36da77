#pragma once

#include <QStringList>

namespace vorn::demo {

/// Cuts a SQL text at its semicolons and drops "--" comments and empty statements. A semicolon or a dash
/// inside a quoted text or name is left alone.
QStringList SplitSql(const QString& text);

} // namespace vorn::demo
