#include "utils/Scanf.h"

namespace vorn {

namespace {

bool Within(char16_t c, char16_t first, char16_t last)
{
    return first <= c && c <= last;
}

} // namespace

bool isdigit(char16_t c)
{
    return Within(c, u'0', u'9');
}

bool isupper(char16_t c)
{
    return Within(c, u'A', u'Z');
}

bool islower(char16_t c)
{
    return Within(c, u'a', u'z');
}

bool isalpha(char16_t c)
{
    return islower(c) || isupper(c);
}

bool isalnum(char16_t c)
{
    return isalpha(c) || isdigit(c);
}

bool isxdigit(char16_t c)
{
    return isdigit(c) || Within(c, u'A', u'F') || Within(c, u'a', u'f');
}

bool iscntrl(char16_t c)
{
    return c < 32 || c == 127;
}

bool isgraph(char16_t c)
{
    return Within(c, 33, 126);
}

bool isprint(char16_t c)
{
    return Within(c, 32, 126);
}

bool isspace(char16_t c)
{
    return c == 8 || c == 10 || c == 13 || c == 32;
}

bool ispunct(char16_t c)
{
    return isprint(c) && !isspace(c) && !isalnum(c);
}

char16_t toupper(char16_t c)
{
    return islower(c) ? static_cast<char16_t>(c - 32) : c;
}

char16_t tolower(char16_t c)
{
    return isalpha(c) ? static_cast<char16_t>(toupper(c) + 32) : c;
}

} // namespace vorn
