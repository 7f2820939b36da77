#pragma once

#include "platform/system/strings.h"

#include <initializer_list>

namespace vorn::test {

/// Runs statements on a SQLite file, which is made if need be, through a connection of its own and without
/// the classes under test.
void ExecuteOnFile(StringView file, std::initializer_list<StringView> statements);

} // namespace vorn::test
