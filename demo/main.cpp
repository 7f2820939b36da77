#include "demo/chart_session.h"
#include "demo/database_builder.h"
#include "demo/export_picture.h"
#include "demo/main_window.h"
#include "demo/options.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QStandardPaths>
#include <QTranslator>

#include <cstdio>
#include <exception>

namespace {

using namespace vorn::demo;

int Fail(const QString& message)
{
    std::fprintf(stderr, "%s\n", message.toUtf8().constData());
    return 1;
}

bool HasDisplay()
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    return false;
}

/// The user's own copy of the sample database, so that what was changed in it is still there next time.
QString SampleDatabase()
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    const QString file = folder.filePath(QStringLiteral("esempio.db"));
    if (!QFileInfo::exists(file)) {
        if (!folder.mkpath(QStringLiteral(".")))
            throw std::runtime_error("Impossibile creare la cartella " + folder.path().toStdString());
        BuildDatabase(file);
    } else {
        UpgradeDatabase(file);
    }
    return file;
}

int Run(const Options& options)
{
    const QString file = options.database.isEmpty() ? SampleDatabase() : options.database;
    const bool exporting = !options.exportFile.isEmpty();
    ChartSession session(file, exporting ? ChartSession::Setting::Export : ChartSession::Setting::Window);
    const std::vector<PatientEntry> patients = session.Patients();
    if (patients.empty())
        throw std::runtime_error("L'archivio non ha pazienti: " + file.toStdString());
    const int patient = options.patient.value_or(patients.front().number);

    if (exporting) {
        session.ShowPatient(patient);
        if (!options.picture.isEmpty())
            session.OpenPicture(options.picture);
        session.ShowZoom(options.zoom);
        ExportChart(session, options.exportFile);
        return 0;
    }
    MainWindow window(session);
    window.show();
    session.ShowZoom(options.zoom);
    window.ShowPatient(patient);
    if (!options.picture.isEmpty())
        window.OpenPicture(options.picture);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    try {
        const Options options = ReadOptions(arguments);
        if (options.help) {
            std::fputs(HelpText().toUtf8().constData(), stdout);
            return 0;
        }
        if (!options.exportFile.isEmpty())
            qputenv("QT_QPA_PLATFORM", "offscreen");
        else if (!HasDisplay())
            return Fail(
                QStringLiteral("Non c'è uno schermo su cui aprire la finestra. Avviare da una sessione grafica, "
                               "oppure salvare il grafico in un file con --export FILE.png."));
        QApplication application(argc, argv);
        QTranslator dialogs; // the toolkit's own texts, in the language of the application
        if (dialogs.load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QApplication::installTranslator(&dialogs);
        QApplication::setApplicationName(QStringLiteral("vorndbctrlD250-demo"));
        return Run(options);
    } catch (const std::exception& error) {
        return Fail(QString::fromUtf8(error.what()));
    }
}
