#pragma once

#include "platform/forms/form_file.h"
#include "platform/forms/form_syntax.h"

namespace vorn::forms {

/// Reads one line of a form file from left to right. Each reading operation leaves out the blanks in front, and raises
/// EFormError for what doesn't fit.
class Words {
public:
    Words(StringView text, int line) : rest_(text), line_(line) {}

    bool AtEnd();
    /// The next character without taking it; 0 at the end.
    char16_t Next();
    /// Whether the next character is this one.
    bool IsNext(char16_t c);
    bool Take(char16_t c);
    void Expect(char16_t c);
    /// Raises if anything is left.
    void ExpectEnd();
    /// `what` is for the message.
    String TakeName(StringView what);
    String TakeDottedName(StringView what);
    /// Quoted parts and "#" units in a row.
    String TakeString();
    String TakeNumber();
    int TakeInteger();
    Set TakeSet();
    TPoint TakePoint();

    int Line() const { return line_; }
    [[noreturn]] void Fail(StringView message) const;

private:
    void SkipBlanks();
    void TakeQuoted(String& text);
    void TakeUnit(String& text);

    StringView rest_;
    int line_;
};

} // namespace vorn::forms
