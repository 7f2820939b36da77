#pragma once

#include <string>

namespace vorn::test {

/// Expects a toolkit warning that contains a text within its scope, and fails the test if it doesn't come.
/// Every other warning fails the test that is running.
class ExpectQtWarning {
public:
    explicit ExpectQtWarning(std::string part);
    ~ExpectQtWarning();
    ExpectQtWarning(const ExpectQtWarning&) = delete;
    ExpectQtWarning& operator=(const ExpectQtWarning&) = delete;

    /// For the message handler: whether this or an outer one takes the warning.
    static bool Take(const std::string& warning);

private:
    std::string part_;
    bool seen_ = false;
    ExpectQtWarning* outer_;
    static ExpectQtWarning* current_;
};

} // namespace vorn::test
