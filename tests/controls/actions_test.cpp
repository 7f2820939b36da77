#include "platform/controls/action.h"
#include "platform/controls/flow_panel.h"
#include "platform/controls/form.h"
#include "platform/controls/speed_button.h"
#include "platform/system/exceptions.h"
#include "tests/controls/blocks.h"
#include "tests/support/mouse.h"
#include "tests/support/reported_exceptions.h"

#include <QImage>

#include <gtest/gtest.h>

namespace vorn::test {

namespace {

/// A button of 25 by 25 tied to an action whose image is a red square of 16 by 16.
struct Tied {
    Tied()
    {
        QImage red(16, 16, QImage::Format_ARGB32);
        red.fill(Qt::red);
        Images->AddImage(red);
        List->SetImages(Images);
        Action->SetActionList(List);
        Action->SetHint(u"Scala +");
        Action->SetImageIndex(0);
        Action->OnExecute = [this](TObject* sender) { Senders.push_back(sender); };
        Root.SetBounds(0, 0, 60, 40);
        Root.SetColor(clWhite);
        Button->SetAction(Action);
        Button->SetParent(&Root);
    }
    QImage Picture()
    {
        QImage image = Paper(25, 25);
        TCanvas canvas(image);
        Button->PaintTo(canvas);
        canvas.End();
        return image;
    }
    int Reds() { return CountPixels(Picture(), qRgb(255, 0, 0)); }

    TForm Root{nullptr};
    TCustomImageList* Images = new TCustomImageList(&Root);
    TActionList* List = new TActionList(&Root);
    TAction* Action = new TAction(&Root);
    TPngSpeedButton* Button = new TPngSpeedButton(&Root);
    std::vector<TObject*> Senders;
};

} // namespace

TEST(ActionTest, ExecutesOnceWithItselfAsSenderUnlessDisabled)
{
    Tied tied;
    EXPECT_TRUE(tied.Action->Execute());
    EXPECT_EQ(tied.Senders, std::vector<TObject*>{tied.Action});
    tied.Action->SetEnabled(false);
    EXPECT_FALSE(tied.Action->Execute());
    EXPECT_EQ(tied.Senders.size(), 1u);
    EXPECT_FALSE(TAction(nullptr).Execute()) << "there is no handler";
}

TEST(ActionTest, ListsItsActionsUntilEitherGoes)
{
    Tied tied;
    auto* second = new TAction(&tied.Root);
    second->SetActionList(tied.List);
    ASSERT_EQ(tied.List->ActionCount(), 2);
    EXPECT_EQ(tied.List->Actions(1), second);
    EXPECT_THROW(tied.List->Actions(2), EListError);
    delete tied.Action;
    EXPECT_EQ(tied.List->ActionCount(), 1);
    EXPECT_EQ(tied.Button->Action(), nullptr);
    delete tied.List;
    EXPECT_EQ(second->ActionList(), nullptr);
}

TEST(SpeedButtonTest, ShowsWhatItsActionShows)
{
    Tied tied;
    EXPECT_EQ(tied.Button->Hint(), u"Scala +");
    EXPECT_EQ(tied.Reds(), 16 * 16);
    tied.Action->SetHint(u"Scala -");
    EXPECT_EQ(tied.Button->Hint(), u"Scala -");
    tied.Action->SetEnabled(false);
    EXPECT_FALSE(tied.Button->Enabled());
    EXPECT_EQ(tied.Reds(), 0) << "grey while disabled";
    EXPECT_NE(InkBox(tied.Picture()), QRect());
    tied.Action->SetEnabled(true);
    tied.Action->SetImageIndex(-1);
    EXPECT_EQ(tied.Reds(), 0);
    tied.Action->SetImageIndex(0);
    delete tied.Images;
    EXPECT_EQ(tied.Reds(), 0);
}

TEST(SpeedButtonTest, FiresOncePerClickAndOnlyInside)
{
    Tied tied;
    tied.Root.Show();
    Mouse mouse;
    mouse.Click(*tied.Button, {12, 12});
    EXPECT_EQ(tied.Senders, std::vector<TObject*>{tied.Action});
    mouse.DoubleClick(*tied.Button, {12, 12}); // quick clicks are clicks
    EXPECT_EQ(tied.Senders.size(), 3u);
    mouse.Press(*tied.Button, {12, 12});
    mouse.Release(*tied.Button, {30, 12});
    mouse.Click(*tied.Button, {12, 12}, Qt::RightButton);
    EXPECT_EQ(tied.Senders.size(), 3u);
    tied.Action->SetEnabled(false);
    mouse.Click(*tied.Button, {12, 12});
    EXPECT_EQ(tied.Senders.size(), 3u);
    TPngSpeedButton untied(nullptr);
    int clicks = 0;
    untied.Events().OnClick = [&](TObject*) { ++clicks; };
    untied.Click();
    EXPECT_EQ(clicks, 1);
}

TEST(SpeedButtonTest, HasALookOfItsOwnUnderTheMouseAndPressed)
{
    Tied tied;
    tied.Root.Show();
    Mouse mouse;
    const QImage flat = tied.Picture();
    EXPECT_EQ(InkBox(flat), QRect(4, 4, 16, 16)) << "only the image";
    mouse.Move(*tied.Button, {12, 12});
    const QImage hot = tied.Picture();
    EXPECT_NE(hot, flat);
    mouse.Press(*tied.Button, {12, 12});
    const QImage down = tied.Picture();
    EXPECT_NE(down, hot);
    mouse.Move(*tied.Button, {40, 12});
    EXPECT_NE(tied.Picture(), down) << "a press taken off the button looks released";
    mouse.Move(*tied.Button, {12, 12});
    EXPECT_EQ(tied.Picture(), down);
    mouse.Release(*tied.Button, {12, 12});
    EXPECT_EQ(tied.Picture(), hot);
    mouse.Move(tied.Root, {50, 30});
    EXPECT_EQ(tied.Picture(), flat);
    mouse.Move(*tied.Button, {12, 12});
    mouse.Leave(tied.Root);
    EXPECT_EQ(tied.Picture(), flat);
    tied.Button->SetFlat(false);
    EXPECT_NE(tied.Picture(), flat);
}

TEST(SpeedButtonTest, AHandlerMayFreeTheFormOrFail)
{
    {
        const ReportedExceptions reported;
        Tied tied;
        tied.Action->OnExecute = [](TObject*) { throw EDatabaseError(u"refused"); };
        Mouse().Click(*tied.Button, {12, 12});
        EXPECT_EQ(reported.Texts(), std::vector<String>{u"refused"});
    }
    auto* form = new TForm(nullptr);
    auto* action = new TAction(form);
    auto* button = new TPngSpeedButton(form);
    button->SetAction(action);
    button->SetParent(form);
    action->OnExecute = [&](TObject*) { delete std::exchange(form, nullptr); };
    form->Show();
    Mouse().Click(*button, {12, 12});
    EXPECT_EQ(form, nullptr);
}

TEST(FlowPanelTest, LaysOutInRowsThatWrapAtItsWidth)
{
    TFlowPanel panel(nullptr);
    panel.SetBounds(0, 0, 81, 73);
    panel.SetBevelOuter(TBevelCut::bvNone);
    std::vector<TControl*> blocks;
    for (int i = 0; i < 5; ++i)
        blocks.push_back(new Block(panel, Bounds(0, 0, 25, 20 + i), clRed));
    const auto places = [&] {
        std::vector<TPoint> found;
        for (const TControl* block : blocks)
            found.push_back({block->Left(), block->Top()});
        return found;
    };
    EXPECT_EQ(places(), (std::vector<TPoint>{{0, 0}, {25, 0}, {50, 0}, {0, 22}, {25, 22}}));
    panel.SetWidth(50);
    EXPECT_EQ(places(), (std::vector<TPoint>{{0, 0}, {25, 0}, {0, 21}, {25, 21}, {0, 44}}));
    blocks[1]->SetVisible(false);
    EXPECT_EQ(places()[2], (TPoint{25, 0}));
    panel.SetWidth(10);
    EXPECT_EQ(places()[2], (TPoint{0, 20})) << "one per row if none fits";
    panel.SetBevelOuter(TBevelCut::bvRaised);
    EXPECT_EQ(places()[2], (TPoint{1, 21}));
    delete blocks[0];
    blocks.erase(blocks.begin());
    EXPECT_EQ(places()[1], (TPoint{1, 1}));
}

} // namespace vorn::test
