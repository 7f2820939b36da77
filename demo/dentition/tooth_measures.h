#pragma once

#include <QString>

#include <array>

namespace vorn::demo {

/// The outline family that a tooth is drawn with.
enum class ToothKind {
    UpperIncisor,
    LowerIncisor,
    Canine,
    Premolar,
    UpperFirstPremolar,
    UpperMolar,
    LowerFirstMolar,
    LowerMolar,
    UpperWisdom,
    LowerWisdom
};

/// Average size of one tooth, in millimetres, as seen from the cheek or the lip.
struct ToothMeasures {
    ToothKind kind;
    double crownWidth;  ///< greatest mesiodistal width
    double cervixWidth; ///< mesiodistal width at the neck
    double crownHeight; ///< biting edge to the neck, in the middle
    double rootLength;  ///< neck to the tip of the longest visible root
    double tilt;        ///< degrees by which the root tip leans to distal
};

/// A tooth by its two FDI digits: quadrant 1 to 8, position 1 to 8 (1 to 5 in the deciduous quadrants).
struct ToothNumber {
    int quadrant;
    int position;

    bool Deciduous() const { return quadrant > 4; }
    bool Upper() const { return quadrant == 1 || quadrant == 2 || quadrant == 5 || quadrant == 6; }
    /// True for the patient's right side, which is the left of the picture.
    bool PatientRight() const { return quadrant == 1 || quadrant == 4 || quadrant == 5 || quadrant == 8; }
    QString Name() const { return QString::number(quadrant * 10 + position); }
};

/// All 52 teeth: upper and lower permanent, then upper and lower deciduous, each row from the left of the
/// picture.
const std::array<ToothNumber, 52>& AllTeeth();

const ToothMeasures& MeasuresOf(const ToothNumber& tooth);

} // namespace vorn::demo
