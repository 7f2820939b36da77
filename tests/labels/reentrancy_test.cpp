#include "tests/labels/label_fixture.h"

#include <tuple>

namespace vorn {
namespace {

enum class Raised { SelectByPress, SelectByMenu, GlyphClick, GlyphContext, LabelClick, SavePos };
enum class Does { FreesTheLabel, Clears, FreesTheTimer, FreesTheView, FreesTheMenu, Unassigns };

/// Every event of a label against everything that a handler may do to what it stands on.
class LabelReentrancy : public LabelTest, public testing::WithParamInterface<std::tuple<Raised, Does>> {
protected:
    LabelReentrancy()
    {
        images.AddImage(Coordinates(16, 11));
        label = MakeLabel("A");
        label->SetImages(&images);
        label->SetImageIndex(0);
        label->SetGliphVisible(true);
        label->SetPictureXAlignment(TXAlign::alXRight);
        menu = std::make_unique<TPopupMenu>(nullptr);
        menu->OnPopup = [this](TObject*) { ++menusOpened; };
        label->SetPopupMenu(menu.get());
        label->OnSelect = nullptr;
        label->OnLabelClick = nullptr;
        label->OnSavePosEvent = nullptr;
    }

    void Act()
    {
        ++raised;
        switch (std::get<1>(GetParam())) {
        case Does::FreesTheLabel:
            delete std::exchange(label, nullptr);
            break;
        case Does::Clears:
            Disarm();
            timer->Clear();
            break;
        case Does::FreesTheTimer:
            timer.reset();
            break;
        case Does::FreesTheView:
            label = nullptr;
            view.reset();
            break;
        case Does::FreesTheMenu:
            menu.reset();
            break;
        case Does::Unassigns:
            Disarm();
            break;
        }
    }
    void Disarm()
    {
        label->OnSelect = nullptr;
        label->OnGlyphClick = nullptr;
        label->OnGliphContextPopup = nullptr;
        label->OnLabelClick = nullptr;
        label->OnSavePosEvent = nullptr;
    }

    /// Wires Act to the event and has the mouse raise it.
    void Drive(Raised event)
    {
        auto act = [this](TObject*) { Act(); };
        switch (event) {
        case Raised::SelectByPress:
            label->OnSelect = [this](TObject*, bool, TShiftState) { Act(); };
            mouse.Click(*view, {50, 50});
            break;
        case Raised::SelectByMenu:
            label->OnSelect = [this](TObject*, bool, TShiftState) { Act(); };
            mouse.Click(*view, {50, 50}, Qt::RightButton);
            break;
        case Raised::GlyphClick:
            label->OnGlyphClick = act;
            mouse.Click(*view, {95, 25});
            break;
        case Raised::GlyphContext:
            label->OnGliphContextPopup = [this](TObject*, const TPoint&, bool&) { Act(); };
            mouse.Click(*view, {95, 25}, Qt::RightButton);
            break;
        case Raised::LabelClick:
            label->OnLabelClick = act;
            mouse.DoubleClick(*view, {50, 50});
            break;
        case Raised::SavePos:
            label->OnSavePosEvent = act;
            label->ShowDrag = true;
            label->Add();
            mouse.Move(*view, {23, 23});
            mouse.Press(*view, {23, 23});
            mouse.Move(*view, {25, 25});
            mouse.Release(*view, {25, 25});
            break;
        }
    }

    TCustomImageList images{nullptr, 16, 11};
    std::unique_ptr<TPopupMenu> menu;
    TDRLabel* label = nullptr;
    int raised = 0;
    int menusOpened = 0;
};

TEST_P(LabelReentrancy, HandlerMayDoAsItLikes)
{
    const auto [event, does] = GetParam();
    Drive(event);
    EXPECT_EQ(raised, 1);
    if (timer && does != Does::Unassigns && does != Does::FreesTheMenu) {
        // Nothing but a glyph menu's own selection comes after the deed.
        const bool menuSelects = event == Raised::GlyphContext && does == Does::Clears;
        EXPECT_EQ(timer->ComponentList().Count(), menuSelects ? 1 : 0);
    }
    if (label && !timer) {
        EXPECT_FALSE(label->InList());
        EXPECT_EQ(label->BTimer(), nullptr);
    }
    const bool asksForMenu = event == Raised::SelectByMenu || event == Raised::GlyphContext;
    const bool menuGone = does == Does::FreesTheMenu || !label;
    EXPECT_EQ(menusOpened, asksForMenu && !menuGone ? 1 : 0);
    if (view) {
        // The view still works.
        mouse.Move(*view, {26, 26});
        Screen();
    }
    QApplication::processEvents();
}

INSTANTIATE_TEST_SUITE_P(Events, LabelReentrancy,
    testing::Combine(testing::Values(Raised::SelectByPress, Raised::SelectByMenu, Raised::GlyphClick,
                         Raised::GlyphContext, Raised::LabelClick, Raised::SavePos),
        testing::Values(Does::FreesTheLabel, Does::Clears, Does::FreesTheTimer, Does::FreesTheView,
            Does::FreesTheMenu, Does::Unassigns)));

/// The handler of the label that leaves acts on the one that is just joining.
class LabelTakeover : public LabelTest {
protected:
    LabelTakeover()
    {
        a = MakeLabel("A", 20, 20);
        b = MakeLabel("B", 120, 20);
        a->Add();
    }
    void WhenALeaves(std::function<void()> action)
    {
        a->OnSelect = [this, action](TObject*, bool, TShiftState) {
            log.push_back("A off");
            action();
        };
    }

    TDRLabel* a;
    TDRLabel* b;
};

TEST_F(LabelTakeover, NewLabelIsFreed)
{
    WhenALeaves([this] { delete b; });
    Click(b, 50, 30);
    EXPECT_EQ(Taken(), (Log{"A off"}));
    EXPECT_EQ(timer->ComponentList().Count(), 0);
}

TEST_F(LabelTakeover, TimerIsFreed)
{
    WhenALeaves([this] { timer.reset(); });
    Click(b, 50, 30);
    EXPECT_EQ(Taken(), (Log{"A off"}));
    EXPECT_FALSE(b->InList());
    TDRLabelTimer other(nullptr);
    b->SetBlinkTimer(&other);
    b->AddToList(true);
    EXPECT_TRUE(b->InList()) << "it can be selected again";
}

TEST_F(LabelTakeover, NewLabelGetsAnotherTimer)
{
    TDRLabelTimer other(nullptr);
    WhenALeaves([&] { b->SetBlinkTimer(&other); });
    Click(b, 50, 30);
    EXPECT_FALSE(b->InList());
    EXPECT_EQ(timer->ComponentList().Count(), 0);
    EXPECT_EQ(other.ComponentList().Count(), 0);
    b->SetBlinkTimer(nullptr);
}

TEST_F(LabelTakeover, NewLabelJoinsAnotherTimer)
{
    TDRLabelTimer other(nullptr);
    WhenALeaves([&] {
        b->SetBlinkTimer(&other);
        b->AddToList(false);
    });
    Click(b, 50, 30);
    EXPECT_TRUE(b->InList());
    EXPECT_EQ(other.ComponentList().Count(), 1);
    b->AddToList(false);
    EXPECT_EQ(other.ComponentList().Count(), 0) << "it stood there once";
    EXPECT_FALSE(other.Enabled());
}

TEST_F(LabelTakeover, ClearSurvivesHandlersThatFree)
{
    b->Add();
    WhenALeaves([this] { delete b; });
    timer->Clear();
    EXPECT_EQ(Taken(), (Log{"A off"}));
    a->Add();
    WhenALeaves([this] { timer.reset(); });
    timer->Clear();
    EXPECT_FALSE(a->InList());
}

} // namespace
} // namespace vorn
