#include "demo/dentition/dentition.h"

#include "demo/dentition/surroundings.h"
#include "demo/dentition/tooth_painter.h"

#include <QPainter>

namespace vorn::demo {

void PaintDentition(QPainter& painter)
{
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    PaintBackground(painter);
    for (const PlacedTooth& tooth : PlacedTeeth()) {
        const double milkiness = tooth.number.Deciduous() ? 0.75 : 0.0;
        PaintTooth(painter, tooth.shape, milkiness);
    }
    PaintCaptions(painter);
    PaintAreas(painter);
    painter.restore();
}

QImage RenderDentition(double scale)
{
    QImage image(PictureSize() * scale, QImage::Format_RGB32);
    image.fill(BackgroundColor());
    QPainter painter(&image);
    painter.scale(scale, scale);
    PaintDentition(painter);
    return image;
}

} // namespace vorn::demo
