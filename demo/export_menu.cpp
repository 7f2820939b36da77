#include "demo/export_menu.h"

#include "demo/export_picture.h"
#include "demo/guarded.h"
#include "demo/print_chart.h"

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QStatusBar>

namespace vorn::demo {

ExportMenu::ExportMenu(ChartSession& session, QMainWindow& window)
    : QObject(&window), session_(session), window_(window)
{
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&Esporta"));
    const auto add = [&](const QString& text, const QString& hint, const QKeySequence& keys, auto action) {
        QAction* entry = menu->addAction(text);
        entry->setStatusTip(hint);
        entry->setShortcut(keys);
        connect(entry, &QAction::triggered, this, [this, action] { RunGuarded(window_, action); });
    };
    add(QStringLiteral("Esporta in un file…"), QStringLiteral("Salva il grafico come immagine PNG o documento PDF"),
        QKeySequence(QStringLiteral("Ctrl+Shift+S")), [this] { AskAndExport(); });
    add(QStringLiteral("Anteprima di stampa…"), QStringLiteral("Mostra la pagina e la stampa"), QKeySequence::Print,
        [this] { Preview(); });
    add(QStringLiteral("Copia il grafico"), QStringLiteral("Mette il grafico negli appunti"), QKeySequence::Copy,
        [this] { Copy(); });
}

void ExportMenu::AskAndExport()
{
    const QString pdf = QStringLiteral("Documento PDF (*.pdf)");
    QFileDialog dialog(&window_, QStringLiteral("Esporta il grafico"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({QStringLiteral("Immagine PNG (*.png)"), pdf});
    dialog.setDefaultSuffix(QStringLiteral("png"));
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(filter == pdf ? QStringLiteral("pdf") : QStringLiteral("png"));
    });
    dialog.selectFile(session_.PatientName());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString file = dialog.selectedFiles().constFirst();
    ExportFinishedChart(session_, file);
    window_.statusBar()->showMessage(QStringLiteral("Grafico salvato in %1").arg(file));
}

void ExportMenu::Preview()
{
    const std::unique_ptr<QPrinter> printer = MakePrinter();
    const std::unique_ptr<QPrintPreviewDialog> dialog(MakePreview(session_, *printer, &window_));
    dialog->exec();
}

void ExportMenu::Copy()
{
    QGuiApplication::clipboard()->setImage(FinishedChart(session_));
    window_.statusBar()->showMessage(QStringLiteral("Grafico copiato negli appunti"));
}

} // namespace vorn::demo
