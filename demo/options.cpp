#include "demo/options.h"

#include "demo/chart_session.h"

#include <stdexcept>

namespace vorn::demo {

namespace {

int ReadNumber(const QString& option, const QString& text)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    if (!ok)
        throw std::runtime_error(QStringLiteral("%1: \"%2\" non è un numero.").arg(option, text).toStdString());
    return number;
}

int ReadZoom(const QString& option, const QString& text)
{
    const int percent = ReadNumber(option, text);
    if (percent < MinZoom || percent > MaxZoom || percent % ZoomStep != 0)
        throw std::runtime_error(QStringLiteral("%1: %2 non è uno zoom; si va da %3 a %4 a passi di %5.")
                                     .arg(option)
                                     .arg(percent)
                                     .arg(MinZoom)
                                     .arg(MaxZoom)
                                     .arg(ZoomStep)
                                     .toStdString());
    return percent;
}

} // namespace

Options ReadOptions(const QStringList& arguments)
{
    Options options;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& name = arguments[i];
        if (name == u"--help" || name == u"-h") {
            options.help = true;
            continue;
        }
        const bool known = name == u"--database" || name == u"--patient" || name == u"--zoom" || name == u"--picture"
            || name == u"--export";
        if (!known)
            throw std::runtime_error(QStringLiteral("Opzione sconosciuta: %1").arg(name).toStdString());
        if (++i == arguments.size())
            throw std::runtime_error(QStringLiteral("%1: manca il valore.").arg(name).toStdString());
        const QString& value = arguments[i];
        if (name == u"--database")
            options.database = value;
        else if (name == u"--patient")
            options.patient = ReadNumber(name, value);
        else if (name == u"--zoom")
            options.zoom = ReadZoom(name, value);
        else if (name == u"--picture")
            options.picture = value;
        else
            options.exportFile = value;
    }
    return options;
}

QString HelpText()
{
    return QStringLiteral("Cartella grafica di esempio\n"
                          "\n"
                          "  --database FILE    archivio SQLite da aprire (senza: l'archivio di esempio)\n"
                          "  --patient NUMERO   paziente da mostrare (1 adulto, 2 bambino, 3 cartella grande)\n"
                          "  --zoom PERCENTO    da 100 a 400, a passi di 10\n"
                          "  --picture FILE     immagine da mostrare al posto del disegno\n"
                          "  --export FILE      salva il grafico in FILE.png o FILE.pdf ed esce, anche senza schermo\n"
                          "  --help             questo testo\n");
}

} // namespace vorn::demo
