#include "demo/sql_script.h"

namespace vorn::demo {

QStringList SplitSql(const QString& text)
{
    QStringList statements;
    QString statement;
    auto finish = [&] {
        statement = statement.trimmed();
        if (!statement.isEmpty())
            statements += statement;
        statement.clear();
    };
    QChar quote;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (!quote.isNull()) {
            // A doubled quote closes and opens again, which comes to the same.
            if (c == quote)
                quote = QChar();
        } else if (c == u'\'' || c == u'"') {
            quote = c;
        } else if (c == u'-' && i + 1 < text.size() && text[i + 1] == u'-') {
            const qsizetype end = text.indexOf(u'\n', i);
            if (end < 0)
                break;
            i = end;
            statement += u'\n';
            continue;
        } else if (c == u';') {
            finish();
            continue;
        }
        statement += c;
    }
    finish();
    return statements;
}

} // namespace vorn::demo
