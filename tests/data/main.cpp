#include <QCoreApplication>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

namespace {

/// A warning of the SQL classes beneath, such as of a connection still in use, is a fault of ours.
void FailOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        ADD_FAILURE() << "toolkit warning: " << message.toStdString();
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv); // the database drivers are its plugins
    qInstallMessageHandler(FailOnWarning);
    return RUN_ALL_TESTS();
}
