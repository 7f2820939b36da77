#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

namespace {

/// A warning of the toolkit, such as of a database connection still in use, is a fault of ours.
void FailOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    // The offscreen platform says so for every top-level window.
    const bool usual = message.startsWith(QLatin1String("This plugin does not support"));
    if (type != QtDebugMsg && type != QtInfoMsg && !usual)
        ADD_FAILURE() << "unexpected toolkit warning: " << message.toStdString();
}

/// Frees what a test has left to the event loop, so that each test pays for its own leaks.
class DeferredDeletes : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    qInstallMessageHandler(FailOnWarning);
    testing::UnitTest::GetInstance()->listeners().Append(new DeferredDeletes);
    return RUN_ALL_TESTS();
}
