#pragma once

#include "platform/controls/application.h"

#include <utility>
#include <vector>

namespace vorn::test {

/// While it lives, exceptions that handlers let out into the event loop are written down instead of failing the test.
class ReportedExceptions {
public:
    ReportedExceptions()
        : before_(std::exchange(Application().OnException,
            [this](const std::exception_ptr& exception) { texts_.push_back(ExceptionText(exception)); }))
    {
    }
    ~ReportedExceptions() { Application().OnException = before_; }
    ReportedExceptions(const ReportedExceptions&) = delete;
    ReportedExceptions& operator=(const ReportedExceptions&) = delete;

    const std::vector<String>& Texts() const { return texts_; }

private:
    std::vector<String> texts_;
    std::function<void(std::exception_ptr)> before_;
};

} // namespace vorn::test
