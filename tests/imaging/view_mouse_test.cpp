#include "tests/imaging/pictures.h"
#include "tests/support/mouse.h"

#include <QtWidgets/QWidget>

#include <gtest/gtest.h>

#include <functional>

namespace vorn::test {

namespace {

class ViewMouseTest : public testing::Test {
protected:
    ViewMouseTest()
    {
        view_->SetBounds(0, 0, 200, 200);
        view_->Bitmap().Allocate(150, 150);
        view_->LayersAdd(20, 20, 10, 10);
        view_->LayersAdd(20, 20, 100, 100);
        view_->SetLayersCurrent(0);
        view_->SetMouseInteract(miMoveLayers);
        view_->OnLayerNotify = [this](TObject* sender, int layer, TIELayerEvent event) {
            EXPECT_EQ(sender, view_.get());
            log_.push_back({layer, static_cast<int>(event)});
        };
        view_->Widget()->show();
    }
    using Log = std::vector<std::pair<int, int>>;
    Log Taken() { return std::exchange(log_, {}); }
    TPoint Place(int layer) const { return {view_->GetLayer(layer).GetPosX(), view_->GetLayer(layer).GetPosY()}; }

    std::unique_ptr<TImageEnView> view_ = std::make_unique<TImageEnView>(nullptr);
    Mouse mouse_;
    Log log_;
};

} // namespace

TEST_F(ViewMouseTest, APressSelectsTheLayerUnderIt)
{
    mouse_.Press(*view_, {15, 15});
    EXPECT_EQ(Taken(), (Log{{1, 0}}));
    EXPECT_EQ(view_->LayersCurrent(), 1);
    EXPECT_TRUE(view_->GetLayer(1).Selected());
    mouse_.ReleaseThere();
    EXPECT_EQ(Taken(), (Log{{1, 1}})); // told even if it didn't move; the listener compares
    mouse_.Click(*view_, {110, 110});
    EXPECT_EQ(Taken(), (Log{{2, 0}, {2, 1}}));
    EXPECT_FALSE(view_->GetLayer(1).Selected());
    mouse_.Click(*view_, {50, 50});
    EXPECT_EQ(Taken(), (Log{{0, 0}}));
    EXPECT_FALSE(view_->GetLayer(2).Selected());
    view_->GetLayer(1).SetSelectable(false);
    mouse_.Click(*view_, {15, 15});
    mouse_.Click(*view_, {190, 190}); // beside everything
    EXPECT_EQ(Taken(), (Log{{0, 0}, {0, 0}}));
}

TEST_F(ViewMouseTest, ADragMovesTheLayerByChartPixels)
{
    mouse_.Drag(*view_, {15, 15}, {45, 25});
    EXPECT_EQ(Place(1), (TPoint{40, 20}));
    EXPECT_EQ(Taken(), (Log{{1, 0}, {1, 1}}));
    view_->ZoomAt(0, 0, 200, false);
    mouse_.Drag(*view_, {90, 50}, {100, 30});
    EXPECT_EQ(Place(1), (TPoint{45, 10}));
    Taken();
    view_->ZoomAt(0, 0, 100, false);

    view_->GetLayer(1).SetLocked(true);
    mouse_.Drag(*view_, {50, 15}, {10, 10});
    EXPECT_EQ(Place(1), (TPoint{45, 10}));
    EXPECT_EQ(Taken(), (Log{{1, 0}}));
    view_->SetMouseInteract(0);
    mouse_.Drag(*view_, {110, 110}, {10, 10});
    EXPECT_EQ(Place(2), (TPoint{100, 100}));
    EXPECT_EQ(Taken(), (Log{{2, 0}}));
    mouse_.Drag(*view_, {1, 1}, {30, 30});
    EXPECT_EQ(Place(0), TPoint{});
}

TEST_F(ViewMouseTest, TheSecondOfTwoQuickPressesDragsToo)
{
    mouse_.Click(*view_, {15, 15});
    view_->SetLayersCurrent(0);
    Taken();
    mouse_.PressAgain();
    EXPECT_EQ(view_->LayersCurrent(), 1);
    mouse_.MoveBy(7, 3);
    mouse_.ReleaseThere();
    EXPECT_EQ(Place(1), (TPoint{17, 13}));
    EXPECT_EQ(Taken(), (Log{{1, 0}, {1, 1}}));
}

/// Only its own release ends a drag: with anything else the layer goes back, and nobody hears of a move.
TEST_F(ViewMouseTest, ADragThatIsCutShortIsUndone)
{
    const std::pair<const char*, std::function<void()>> cuts[] = {
        {"deselected", [this] { view_->SetLayersCurrent(0); }},
        {"another one selected", [this] { view_->SetLayersCurrent(2); }},
        {"another one added", [this] { view_->LayersAdd(5, 5, 0, 0); }},
        {"another one removed", [this] { view_->LayersRemove(2); }},
        {"the release was lost",
            [this] {
                Mouse().Move(*view_, {60, 60});
            }},
        {"the release was lost, then a press",
            [this] {
                Mouse().Press(*view_, {47, 27});
            }},
    };
    for (const auto& [name, cut] : cuts) {
        SCOPED_TRACE(name);
        mouse_.Press(*view_, {15, 15});
        mouse_.MoveBy(30, 10);
        view_->GetLayer(1).SetPosX(view_->GetLayer(1).GetPosX() + 2); // as when the chart is shifted
        EXPECT_EQ(Place(1), (TPoint{42, 20}));
        Taken();
        cut();
        EXPECT_EQ(Place(1), (TPoint{12, 10}));
        mouse_.MoveBy(9, 9);
        mouse_.ReleaseThere();
        for (const auto& [layer, event] : Taken())
            EXPECT_NE(event, 1) << "layer " << layer;
        EXPECT_EQ(Place(1), (TPoint{12, 10}));
        view_->GetLayer(1).SetPosX(10);
    }
}

TEST_F(ViewMouseTest, HandlersMayRemoveTheLayerOrFreeTheView)
{
    view_->OnLayerNotify = [this](TObject*, int, TIELayerEvent) { view_->LayersClear(); };
    mouse_.Drag(*view_, {110, 110}, {50, 50});
    EXPECT_EQ(view_->GetLayersCount(), 1);
    view_->LayersAdd(20, 20, 10, 10);
    view_->OnLayerNotify = [this](TObject*, int, TIELayerEvent event) {
        if (event == TIELayerEvent::ielMoved)
            view_.reset();
    };
    mouse_.Drag(*view_, {15, 15}, {50, 50});
    EXPECT_EQ(view_, nullptr);
    ProcessEvents();
}

} // namespace vorn::test
