#include "chart/published_properties.h"
#include "demo/forms/embedded_forms.h"
#include "demo/qt_strings.h"
#include "platform/controls/scroll_box.h"
#include "platform/forms/form_file.h"
#include "platform/system/strings.h"
#include "tests/demo/sample_copy.h"
#include "tests/support/strings_print.h"

#include <QTemporaryDir>

#include <sstream>

namespace vorn::demo {
namespace {

using test::Utf8;

class ChartFormFile : public testing::Test {
protected:
    ChartFormFile()
    {
        RegisterChartClasses();
        offers.Offer<TDataSetNotifyEvent>(u"NewRow", [](TDataSet*) {});
        offers.Offer<TIELayerNotify>(u"LayerNotify", [](TObject*, int, TIELayerEvent) {});
    }
    template <typename T>
    T& Get(StringView name)
    {
        return dynamic_cast<T&>(*root.FindComponent(name));
    }

    const std::string text = chart_form;
    TFormOffers offers;
    TComponent root{nullptr};
};

TEST_F(ChartFormFile, IsWrittenAsItStands)
{
    root.SetDesigning(true);
    ReadForm(FromUtf8(text), root, offers);
    EXPECT_EQ(Utf8(WriteForm(root)), text);
}

TEST_F(ChartFormFile, ShowsAPatientOnceItsDatasetsAreOpen)
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("prova.db"));
    CopySample(file);
    ReadForm(FromUtf8(text), root, offers);
    Get<TSqlConnection>(u"archivio").OpenFile(FromQt(file));
    for (StringView name : {u"prestazioni", u"cartella", u"disegni"})
        Get<TSqlDataSet>(name).SetParam(u"paziente", std::int64_t{1});
    for (StringView name :
        {u"operatori", u"tipologie", u"diagnosi", u"simboli", u"sfondi", u"cartella", u"disegni", u"prestazioni"})
        Get<TSqlDataSet>(name).Open();
    const auto& chart = Get<TVornIEDBTerList>(u"carta");
    const auto& view = Get<TImageEnView>(u"vista");
    EXPECT_EQ(view.Parent(), &Get<TScrollBox>(u"riquadro"));
    EXPECT_GT(chart.ListVornRec().Count(), 0);
    int labels = 0;
    for (int i = 0; i < view.ControlCount(); ++i)
        labels += dynamic_cast<TDRLabel*>(view.Controls(i)) != nullptr;
    EXPECT_GT(labels, 10);
    EXPECT_GT(view.GetLayersCount(), 1) << "symbols";
}

TEST_F(ChartFormFile, BrokenAnywhereItLeavesNothing)
{
    for (std::size_t size = 0; size + 1 < text.size(); ++size)
        EXPECT_THROW(ReadForm(FromUtf8(text.substr(0, size)), root, offers), EFormError) << size;
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line + '\n');
    int refused = 0;
    for (std::size_t i = 0; i < lines.size(); ++i)
        for (const int copies : {0, 2}) {
            std::string changed;
            for (std::size_t j = 0; j < lines.size(); ++j)
                for (int n = 0; n < (i == j ? copies : 1); ++n)
                    changed += lines[j];
            TComponent another(nullptr);
            try {
                ReadForm(FromUtf8(changed), another, offers);
            } catch (const EFormError& error) {
                ++refused;
                EXPECT_GT(error.Line(), 0);
                EXPECT_EQ(another.ComponentCount(), 0) << error.what();
            }
        }
    EXPECT_GT(refused, static_cast<int>(lines.size()));
    EXPECT_EQ(root.ComponentCount(), 0);
}

} // namespace
} // namespace vorn::demo
