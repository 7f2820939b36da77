#include "tests/labels/label_fixture.h"
#include "tests/support/reported_exceptions.h"

#include <stdexcept>

namespace vorn {
namespace {

/// Every event of a label against everything that a handler may free below it.
class LabelReentrancy : public LabelTest {
protected:
    enum Raised { SelectByPress, SelectByMenu, GlyphClick, GlyphContext, LabelClick, SavePos };

    void MakeAll()
    {
        Renew();
        label = MakeLabel("A");
        label->SetImages(&images);
        label->SetImageIndex(0);
        label->SetGliphVisible(true);
        label->SetPictureXAlignment(TXAlign::alXRight);
        menu = std::make_unique<TPopupMenu>(nullptr);
        menu->OnPopup = [this](TObject*) { ++menusOpened; };
        label->SetPopupMenu(menu.get());
        label->OnSelect = nullptr;
        raised = menusOpened = 0;
    }

    /// Has the mouse raise the event with `deed` as its handler.
    void Drive(Raised event, const std::function<void()>& deed)
    {
        const auto act = [this, deed](auto&&...) {
            ++raised;
            deed();
        };
        const bool onGlyph = event == GlyphClick || event == GlyphContext;
        const TPoint at = onGlyph ? TPoint{95, 25} : TPoint{50, 50};
        const bool right = event == SelectByMenu || event == GlyphContext;
        if (event == SelectByPress || event == SelectByMenu)
            label->OnSelect = act;
        else if (event == GlyphClick)
            label->OnGlyphClick = act;
        else if (event == GlyphContext)
            label->OnGliphContextPopup = act;
        else if (event == LabelClick)
            label->OnLabelClick = act;
        if (event == SavePos) {
            label->OnSavePosEvent = act;
            label->ShowDrag = true;
            label->Add();
            mouse.Drag(*view, {23, 23}, {27, 27});
        } else if (event == LabelClick) {
            mouse.DoubleClick(*view, at);
        } else {
            mouse.Click(*view, at, right ? Qt::RightButton : Qt::LeftButton);
        }
    }

    TCustomImageList images{nullptr, 16, 11};
    std::unique_ptr<TPopupMenu> menu;
    TDRLabel* label = nullptr;
    int raised = 0;
    int menusOpened = 0;
};

TEST_F(LabelReentrancy, HandlersMayFreeWhatTheyStandOn)
{
    images.AddImage(Coordinates(16, 11));
    const std::pair<const char*, std::function<void()>> deeds[] = {
        {"label", [this] { delete std::exchange(label, nullptr); }},
        {"timer", [this] { timer.reset(); }},
        {"menu", [this] { menu.reset(); }},
        {"view",
            [this] {
                label = nullptr;
                view.reset();
            }},
    };
    for (const Raised event : {SelectByPress, SelectByMenu, GlyphClick, GlyphContext, LabelClick, SavePos}) {
        for (const auto& [freed, deed] : deeds) {
            SCOPED_TRACE(testing::Message() << freed << " in event " << event);
            MakeAll();
            Drive(event, deed);
            EXPECT_EQ(raised, 1);
            if (timer && !label) {
                EXPECT_EQ(timer->ComponentList().Count(), 0);
            }
            if (label && !timer) {
                EXPECT_FALSE(label->InList());
                EXPECT_EQ(label->BTimer(), nullptr);
            }
            const bool asksForMenu = event == SelectByMenu || event == GlyphContext;
            EXPECT_EQ(menusOpened, asksForMenu && menu && label ? 1 : 0);
            if (view) { // it still works
                mouse.Move(*view, {26, 26});
                Screen();
            }
            QApplication::processEvents();
        }
    }
}

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

TEST_F(LabelTakeover, AHandlerThatRaisesLeavesNoLabelSelectedOutsideTheList)
{
    const test::ReportedExceptions reported;
    WhenALeaves([] { throw std::runtime_error("refused"); });
    Click(b, 50, 30);
    EXPECT_EQ(reported.Texts(), std::vector<String>{u"refused"});
    EXPECT_FALSE(a->InList());
    EXPECT_FALSE(b->InList());
    Click(b, 50, 30);
    EXPECT_TRUE(b->InList());
    EXPECT_EQ(timer->ComponentList().IndexOf(b), 0);
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
