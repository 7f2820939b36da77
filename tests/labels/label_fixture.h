#pragma once

#include "labels/DrLabel.h"
#include "platform/controls/popup_menu.h"
#include "platform/imaging/image_view.h"
#include "tests/support/mouse.h"
#include "tests/support/pixels.h"

#include <QApplication>
#include <QImage>
#include <QWidget>

#include <memory>
#include <string>
#include <vector>

namespace vorn {

using test::CountPixels;
using test::Rgb;

/// Labels on a view that is on the screen, with what they raise written down in order.
class LabelTest : public testing::Test {
protected:
    using Log = std::vector<std::string>;

    LabelTest() { Renew(); }
    void Renew()
    {
        view = std::make_unique<TImageEnView>(nullptr);
        view->SetBounds(0, 0, 400, 300);
        view->SetBackground(clBlue);
        view->Widget()->show();
        QApplication::processEvents();
        timer = std::make_unique<TDRLabelTimer>(nullptr);
    }

    /// A white label of fixed size with a large text, so that some pixels have the text's own colour.
    /// The view frees it.
    TDRLabel* MakeLabel(const std::string& name, int left = 20, int top = 20, int width = 80, int height = 40)
    {
        auto* label = new TDRLabel(nullptr);
        label->SetParent(view.get());
        label->SetAutoSize(false);
        label->SetBounds(left, top, width, height);
        label->SetColor(clWhite);
        label->Font().SetHeight(-30);
        label->SetCaption(u"HI");
        label->SetBlinkTimer(timer.get());
        label->OnSelect = [this, name](TObject*, bool select, TShiftState shift) {
            std::string entry = name + (select ? " on" : " off");
            for (const auto& [key, text] : {std::pair(ssShift, " shift"), {ssCtrl, " ctrl"}, {ssAlt, " alt"}})
                entry += shift & key ? text : "";
            entry += shift & ~(ssShift | ssCtrl | ssAlt) ? " other" : "";
            log.push_back(entry);
        };
        label->OnLabelClick = [this, name](TObject*) { log.push_back(name + " label"); };
        label->OnSavePosEvent = [this, name](TObject*) { log.push_back(name + " save"); };
        return label;
    }

    /// What has been logged since the last call.
    Log Taken() { return std::exchange(log, {}); }

    QImage Screen() const { return view->Widget()->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    QImage Picture(const TDRLabel* label) const
    {
        return Screen().copy(label->Left(), label->Top(), label->Width(), label->Height());
    }

    /// A left click at a point of the label.
    void Click(TDRLabel* label, int x, int y, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        mouse.SetModifiers(keys);
        mouse.Click(*label, {x, y});
        mouse.SetModifiers(Qt::NoModifier);
    }

    test::Mouse mouse;
    std::unique_ptr<TDRLabelTimer> timer;
    std::unique_ptr<TImageEnView> view;
    Log log;
};

/// An image whose every pixel tells where in the image it lies.
inline QImage Coordinates(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x, y, 77));
    return image;
}

} // namespace vorn
