#include "tests/support/mouse.h"
#include "tests/support/patient_fixture.h"
#include "tests/support/pixels.h"

#include <algorithm>

namespace vorn {
namespace {

using namespace test;

/// A black picture with a zone for the first and the last tooth of each half of the table of names, and
/// for an area.
class MissingTeeth : public PatientFixture {
protected:
    static constexpr StringView Teeth = u"10 10 40 40 3 15 60 18\r\n"
                                        u"60 10 90 40 1 60 60 38\r\n"
                                        u"110 10 140 40 2 110 60 55\r\n"
                                        u"150 10 190 40 0 190 60 75\r\n"
                                        u"10 105 40 145 3 15 110 GL\r\n"
                                        u"60 105 90 145 3 65 110 18\r\n";
    using Names = std::vector<std::string>;

    MissingTeeth() { Background(Teeth); }
    void Background(StringView zones, StringView names = {})
    {
        ShowBackground(Blob(Picture(200, 150, clBlack)), zones, names);
    }
    void Miss(TValue missing, std::optional<TFieldType> type = TFieldType::ftString)
    {
        ShowRecord(std::move(missing), {}, type);
        chart->CreaCollection();
    }
    static String Only(int position) { return String(static_cast<std::size_t>(position) - 1, u'0') + u'1'; }
    /// The zone names under the layers above the picture, in the order of the stack; a symbol is "*".
    Names Stack() const
    {
        Names names;
        for (int i = 1; i < view->GetLayersCount(); ++i) {
            const TIELayer& layer = view->GetLayer(i);
            const bool symbol = layer.UserDataLen == SymbolLayerMark;
            names.emplace_back(symbol ? "*" : "?");
            for (const TZone* zone : chart->ZoneList())
                if (!symbol && zone->rectOffeset == layer.ChartBox())
                    names.back() = Utf8(zone->numZona);
        }
        return names;
    }
};

TEST_F(MissingTeeth, APositionNamesItsToothAndTheAreasAreLeftOut)
{
    const std::pair<String, Names> cases[]
        = {{u"", {}}, {Only(1), {"18"}}, {Only(2), {}}, {Only(32), {"38"}}, {Only(33), {"55"}}, {Only(52), {"75"}},
            {Only(53), {}}, {u"1" + Only(60), {"18"}}, {u"l2I", {}}, {u"x1", {}}, {u" 1", {}}, {u"12", {"18"}},
            {u"１", {}}, {u"1\r\n", {"18"}}, {String(5000, u'1'), {"18", "38", "55", "75"}}, {String(5000, u'x'), {}}};
    for (const auto& [missing, veiled] : cases) {
        SCOPED_TRACE(Utf8(missing.substr(0, 60)));
        Miss(missing);
        EXPECT_EQ(Stack(), veiled);
        EXPECT_EQ(view->LayersCurrent(), 0);
    }
}

TEST_F(MissingTeeth, WhatCannotBeReadVeilsNothing)
{
    Miss(Only(1));
    ASSERT_EQ(Stack(), Names{"18"});
    Miss({});
    EXPECT_EQ(Stack(), Names());
    Miss({}, std::nullopt);
    EXPECT_EQ(Stack(), Names()) << "no such column";
    Miss(std::int64_t{1}, TFieldType::ftInteger);
    EXPECT_EQ(Stack(), Names{"18"}) << "a number reads as its text";
    record->Close();
    chart->CreaCollection();
    EXPECT_EQ(Stack(), Names());
    record->Open();
    chart->SetDataSourceCartella(nullptr);
    chart->CreaCollection();
    EXPECT_EQ(Stack(), Names());
}

TEST_F(MissingTeeth, TheTableOfNamesDecides)
{
    struct Case {
        StringView Zones, Table;
        String Missing;
        Names Veiled;
    };
    const Case cases[] = {{u"", u"18 17", u"11", {"GL"}}, // what a background without zones has
        {Teeth, u"75 38 none 18", u"1111", {"75", "38", "18"}}, {Teeth, u"gl 18", u"11", {"18"}},
        {Teeth, u"18 38", u"0111", {"38"}}, {u"40 40 10 10 3 5 5 18", u"18", u"1", {"?"}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(Utf8(c.Table));
        Background(c.Zones, c.Table);
        Miss(c.Missing);
        EXPECT_EQ(Stack(), c.Veiled);
    }
}

TEST_F(MissingTeeth, AVeilLiesOverThePictureAndBelowTheSymbols)
{
    ShowSymbols({{20, 20}, {100, 100}});
    ShowTreatments({{.Id = 1, .X = -25, .Y = 100}});
    Miss(u"1");
    EXPECT_EQ(Stack(), (Names{"18", "*", "*"}));
    EXPECT_EQ(view->GetLayer(1).GetPosX(), 35) << "moves along with the picture";
    const QImage screen = PictureOf(*view);
    EXPECT_NEAR(qRed(screen.pixel(36, 11)), 230, 1);
    EXPECT_EQ(screen.pixel(36, 11), screen.pixel(64, 39));
    EXPECT_EQ(screen.pixel(65, 39), Rgb(clBlack));
    EXPECT_EQ(screen.pixel(46, 21), Rgb(clRed)) << "a symbol isn't veiled";
    symbols->Delete();
    EXPECT_EQ(Stack(), (Names{"18", "*"}));
}

TEST_F(MissingTeeth, OpacityReachesTheVeilsAtOnceAndTheNextOnes)
{
    chart->SetOpacity(200);
    EXPECT_EQ(chart->Opacity(), 200);
    ShowSymbols({{100, 100}});
    Miss(String(60, u'1'));
    ASSERT_EQ(Stack(), (Names{"18", "38", "55", "75", "*"}));
    for (const int opacity : {200, 0, 128, 300}) {
        chart->SetOpacity(opacity);
        for (int i = 1; i <= 4; ++i)
            EXPECT_EQ(view->GetLayer(i).Opacity(), opacity);
        EXPECT_EQ(view->GetLayer(0).Opacity(), 255);
        EXPECT_EQ(view->GetLayer(5).Opacity(), 255);
    }
    chart->CreaCollection();
    EXPECT_EQ(view->GetLayer(4).Opacity(), 300);
    Miss({});
    chart->SetOpacity(5); // the veils are no more
    EXPECT_EQ(chart->Opacity(), 5);
}

TEST_F(MissingTeeth, TheMouseReachesTheZoneUnderAVeil)
{
    ShowTreatments({});
    Miss(u"1");
    std::vector<std::string> clicked;
    chart->OnZoneClick = [&](TObject* sender) { clicked.push_back(Utf8(static_cast<TZone*>(sender)->numZona)); };
    Mouse().Drag(*view, {20, 20}, {35, 30});
    EXPECT_EQ(view->LayersCurrent(), 0);
    EXPECT_FALSE(view->GetLayer(1).Selected());
    EXPECT_EQ(Stack(), Names{"18"}) << "still in its place";
    EXPECT_EQ(clicked, Names{"18"});
}

/// A veil's own index is its mark, and one of them would be the mark of a symbol.
TEST_F(MissingTeeth, MoreVeilsThanTheMarkOfASymbolStay)
{
    String zones, names;
    for (int i = 0; i < 120; ++i) {
        const String name = u"z" + IntToStr(i);
        zones += IntToStr(i) + u" 0 " + IntToStr(i + 1) + u" 9 3 0 0 " + name + u"\r\n";
        names += name + u' ';
    }
    Background(zones, names);
    ShowSymbols({{5, 50}, {50, 50}});
    Miss(String(120, u'1'));
    const auto symbolsOnTop = [&](int count) {
        Names stack = Stack();
        ASSERT_EQ(stack.size(), 117u + static_cast<std::size_t>(count));
        EXPECT_EQ(stack[31], "z31");
        EXPECT_EQ(stack[32], "z35") << "the three areas are left out";
        EXPECT_EQ(stack[95], "z98");
        EXPECT_EQ(stack[116], "z119");
        EXPECT_EQ(std::count(stack.begin() + 117, stack.end(), "*"), count);
    };
    symbolsOnTop(2);
    symbols->Delete();
    symbolsOnTop(1);
    chart->SetEnabledDib(false);
    EXPECT_TRUE(view->GetLayer(96).Visible());
    EXPECT_FALSE(view->GetLayer(118).Visible());
}

} // namespace
} // namespace vorn
