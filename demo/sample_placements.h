#pragma once

#include <QPoint>
#include <QString>

#include <vector>

namespace vorn::demo {

/// A symbol on a sample patient's chart, as its row has it.
struct SamplePlacement {
    int patient;
    QString symbol;  ///< its "Nome" in the catalogue
    QPoint corner;   ///< left top, picture pixels
    int angle = 0;   ///< degrees
    int scale = 100; ///< percent
    int opacity = 255;
};

/// What the sample patients have: findings and works that go with the treatments of the adult and the child, and fifty
/// symbols spread over the large record's teeth.
std::vector<SamplePlacement> SamplePlacements();

} // namespace vorn::demo
