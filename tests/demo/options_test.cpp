#include "demo/options.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vorn::demo {
namespace {

TEST(Options, ReadsWhatIsGiven)
{
    const Options options = ReadOptions({QStringLiteral("--zoom"), QStringLiteral("150"), QStringLiteral("--patient"),
        QStringLiteral("2"), QStringLiteral("--database"), QStringLiteral("a.db"), QStringLiteral("--export"),
        QStringLiteral("b.png"), QStringLiteral("--picture"), QStringLiteral("rx.jpg")});
    EXPECT_EQ(options.picture, QStringLiteral("rx.jpg"));
    EXPECT_EQ(options.zoom, 150);
    EXPECT_EQ(options.patient, 2);
    EXPECT_EQ(options.database, QStringLiteral("a.db"));
    EXPECT_EQ(options.exportFile, QStringLiteral("b.png"));

    const Options none = ReadOptions({});
    EXPECT_EQ(none.zoom, 100);
    EXPECT_FALSE(none.patient.has_value());
    EXPECT_TRUE(none.exportFile.isEmpty());
    EXPECT_TRUE(none.picture.isEmpty());
}

TEST(Options, RefusesAndNamesWhatIsWrong)
{
    struct Case {
        QStringList arguments;
        const char* named;
    };
    const Case cases[] = {
        {{QStringLiteral("--zom"), QStringLiteral("150")}, "--zom"},
        {{QStringLiteral("--zoom"), QStringLiteral("grande")}, "grande"},
        {{QStringLiteral("--zoom"), QStringLiteral("95")}, "95"},
        {{QStringLiteral("--zoom"), QStringLiteral("90")}, "90"},
        {{QStringLiteral("--patient"), QStringLiteral("uno")}, "uno"},
        {{QStringLiteral("--export")}, "--export"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.named);
        try {
            ReadOptions(c.arguments);
            ADD_FAILURE() << "accepted";
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(c.named), std::string::npos) << error.what();
        }
    }
}

} // namespace
} // namespace vorn::demo
