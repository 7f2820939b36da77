#include "tests/support/qt_test_main.h"

#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

namespace vorn::test {

ExpectQtWarning* ExpectQtWarning::current_ = nullptr;

ExpectQtWarning::ExpectQtWarning(std::string part) : part_(std::move(part)), outer_(current_)
{
    current_ = this;
}

ExpectQtWarning::~ExpectQtWarning()
{
    current_ = outer_;
    EXPECT_TRUE(seen_) << "no warning with \"" << part_ << "\" came";
}

bool ExpectQtWarning::Take(const std::string& warning)
{
    for (ExpectQtWarning* expected = current_; expected; expected = expected->outer_) {
        if (warning.find(expected->part_) != std::string::npos)
            return expected->seen_ = true;
    }
    return false;
}

namespace {

void OnQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    const std::string text = message.toStdString();
    if (type == QtDebugMsg || type == QtInfoMsg || ExpectQtWarning::Take(text))
        return;
    // The offscreen platform says so for every top-level window.
    if (message.startsWith(QLatin1String("This plugin does not support")))
        return;
    ADD_FAILURE() << "unexpected toolkit warning: " << text;
}

/// Frees what a test has left to the event loop, so that each test pays for its own leaks.
class DeferredDeletes : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

} // namespace

} // namespace vorn::test

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    qInstallMessageHandler(vorn::test::OnQtMessage);
    testing::UnitTest::GetInstance()->listeners().Append(new vorn::test::DeferredDeletes);
    return RUN_ALL_TESTS();
}
