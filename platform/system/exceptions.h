#pragma once

#include "platform/system/types.h"

#include <stdexcept>

namespace vorn {

/// Root of everything this library throws. The message is for people and names the column, file or value.
class Exception : public std::runtime_error {
public:
    explicit Exception(StringView message);
    const String& Message() const { return message_; }

private:
    String message_;
};

/// A text or value that can't be read as what it should be.
class EConvertError : public Exception {
public:
    using Exception::Exception;
};

/// An index outside its list.
class EListError : public Exception {
public:
    using Exception::Exception;
};

/// A stream or file that can't be read or written.
class EStreamError : public Exception {
public:
    using Exception::Exception;
};

/// An operation that a component can't do in its present state.
class EInvalidOperation : public Exception {
public:
    using Exception::Exception;
};

/// A dataset, column or database that refuses; the message names it.
class EDatabaseError : public Exception {
public:
    using Exception::Exception;
};

/// A row that somebody else has changed or deleted since it was read; nothing was written.
class EUpdateConflict : public EDatabaseError {
public:
    using EDatabaseError::EDatabaseError;
};

} // namespace vorn
