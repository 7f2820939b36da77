#include "tests/labels/label_fixture.h"

#include <QDeadlineTimer>

namespace vorn {
namespace {

class LabelBlink : public LabelTest {
protected:
    LabelBlink()
    {
        label = MakeLabel("A");
        label->Font().SetColor(clBlack);
        reference = MakeLabel("R", 20, 120);
    }

    /// What the label looks like with this font colour, without a timer.
    QImage Plain(TColor color)
    {
        reference->Font().SetColor(color);
        return Picture(reference);
    }
    static QImage Inverted(QImage picture)
    {
        picture.invertPixels();
        return picture;
    }
    static QImage WithHandle(QImage picture)
    {
        for (int i = 0; i <= 10; ++i)
            for (const TPoint p : {TPoint{0, i}, {10, i}, {i, 0}, {i, 10}})
                picture.setPixel(p.X, p.Y, Rgb(clRed));
        for (int i = 2; i <= 8; ++i)
            for (const TPoint p : {TPoint{2, i}, {8, i}, {i, 2}, {i, 8}})
                picture.setPixel(p.X, p.Y, Rgb(clRed));
        return picture;
    }
    void Tick() { timer->TimeBLink(timer.get()); }

    TDRLabel* label;
    TDRLabel* reference;
};

TEST_F(LabelBlink, EachModeAlternatesInItsWayAndLeavesNoTrace)
{
    struct Case {
        TDRBlink mode;
        TColor own, first, second;
        bool inverts;
    };
    const Case cases[] = {{TDRBlink::blHiLo, clBlack, clNone, clRed, false},
        {TDRBlink::blInvert, clBlack, clBlack, clBlack, true}, {TDRBlink::blNone, clBlack, clWhite, clBlack, false},
        {TDRBlink::blNone, clWhite, clWhite, clWhite, false}}; // no text of its own to come back to
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        timer->SetBlink(c.mode);
        label->Font().SetColor(c.own);
        label->Add();
        EXPECT_TRUE(timer->Enabled());
        for (int tick = 0; tick < 5; ++tick) {
            const TColor color = tick % 2 ? c.second : c.first;
            EXPECT_EQ(label->Font().Color(), color);
            EXPECT_EQ(Picture(label), c.inverts && tick % 2 == 0 ? Inverted(Plain(color)) : Plain(color));
            if (tick < 4)
                Tick();
        }
        timer->Clear(); // in the midst of its first phase
        EXPECT_EQ(label->Font().Color(), c.own);
        EXPECT_EQ(Picture(label), Plain(c.own));
        EXPECT_FALSE(timer->Enabled());
    }
}

TEST_F(LabelBlink, HighColourRestartsThePhase)
{
    label->Add();
    TDRLabel* second = MakeLabel("B", 120, 20);
    second->Add();
    EXPECT_EQ(second->Font().Color(), clWindowText) << "joining a running timer runs no step";
    const auto shown = [&] {
        Tick();
        EXPECT_EQ(label->Font().Color(), second->Font().Color());
        return label->Font().Color();
    };
    timer->SetLoColor(clWhite); // doesn't touch the phase
    EXPECT_EQ(shown(), clRed);
    timer->SetHiColor(clBlue);
    EXPECT_EQ(shown(), clWhite);
    timer->SetHiColor(clBlack);
    EXPECT_EQ(shown(), clWhite) << "low again, though low was shown last";
    timer->SetHiColor(clBlack);
    EXPECT_EQ(shown(), clBlack) << "the same colour changes nothing";
}

TEST_F(LabelBlink, ModeChangesWithTheNextTick)
{
    label->Add();
    Tick();
    timer->SetBlink(TDRBlink::blInvert);
    EXPECT_EQ(Picture(label), Plain(clRed));
    Tick();
    EXPECT_EQ(Picture(label), Inverted(Plain(clRed)));
    timer->SetBlink(TDRBlink::blNone);
    EXPECT_EQ(Picture(label), Inverted(Plain(clRed)));
    Tick();
    EXPECT_EQ(Picture(label), Plain(clWhite));
    Tick();
    EXPECT_EQ(Picture(label), Plain(clBlack));
    timer->SetBlink(TDRBlink::blHiLo);
    Tick();
    EXPECT_EQ(Picture(label), Plain(clNone));
    label->AddToList(false);
    EXPECT_EQ(Picture(label), Plain(clBlack)) << "leaving gives the label's own colour back";
}

TEST_F(LabelBlink, DraggableLabelShowsItsHandleInEveryMode)
{
    label->ShowDrag = true;
    EXPECT_EQ(Picture(label), Plain(clBlack));
    for (const auto& [mode, first] :
        {std::pair(TDRBlink::blHiLo, clNone), {TDRBlink::blInvert, clBlack}, {TDRBlink::blNone, clWhite}}) {
        timer->SetBlink(mode);
        label->Add();
        const bool inverted = mode == TDRBlink::blInvert;
        EXPECT_EQ(Picture(label), WithHandle(inverted ? Inverted(Plain(first)) : Plain(first)));
        timer->Clear();
        EXPECT_EQ(Picture(label), Plain(clBlack));
    }
}

TEST_F(LabelBlink, TicksReachTheScreenByThemselves)
{
    timer->SetBlink(TDRBlink::blInvert);
    timer->SetInterval(10);
    label->Add();
    const QImage before = Picture(label);
    test::PaintSpy paints(view->Widget());
    bool changed = false;
    for (const QDeadlineTimer limit(5000); !changed && !limit.hasExpired();) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        // The window must have been painted for the tick, not only for the picture that the test takes.
        changed = !paints.Taken().isEmpty() && Picture(label) != before;
        paints.Taken();
    }
    EXPECT_TRUE(changed);
    timer->Clear();
    const QImage still = Picture(label);
    for (const QDeadlineTimer limit(60); !limit.hasExpired();)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(Picture(label), still) << "the last label that leaves stops it";
}

TEST_F(LabelBlink, ClearTellsEachLabelAndStops)
{
    timer->Clear();
    EXPECT_FALSE(timer->Enabled());
    timer->SetEnabled(true);
    timer->Clear();
    EXPECT_TRUE(timer->Enabled()) << "nothing to clear, nothing to stop";

    label->Add();
    label->Add();
    TDRLabel* second = MakeLabel("B", 120, 20);
    second->Add();
    EXPECT_EQ(timer->ComponentList().Count(), 2);
    EXPECT_EQ(Taken(), Log{}) << "Add is silent";
    timer->Clear();
    EXPECT_EQ(Taken(), (Log{"A off", "B off"}));
    EXPECT_EQ(timer->ComponentList().Count(), 0);
    EXPECT_FALSE(timer->Enabled());
}

TEST_F(LabelBlink, AnotherTimerMeansAnotherSelection)
{
    TDRLabelTimer other(nullptr);
    label->AddToList(true);
    Taken();
    label->SetBlinkTimer(timer.get());
    EXPECT_TRUE(label->InList()) << "the same timer changes nothing";
    label->SetBlinkTimer(&other);
    EXPECT_FALSE(label->InList());
    EXPECT_EQ(timer->ComponentList().Count(), 0);
    EXPECT_FALSE(timer->Enabled());
    EXPECT_EQ(label->Font().Color(), clBlack);
    EXPECT_EQ(Taken(), Log{});
    label->AddToList(true);
    EXPECT_EQ(other.ComponentList().IndexOf(label), 0);
    label->SetBlinkTimer(nullptr);
    EXPECT_FALSE(other.Enabled());
}

} // namespace
} // namespace vorn
