#pragma once

#include "platform/controls/win_control.h"

#include <QtWidgets/QWidget>

namespace vorn {

/// The window on which a windowed control paints, gets the mouse and carries child windows. Outlives its
/// control for the length of an event in which that is freed.
class ControlWidget : public QWidget {
public:
    /// Makes itself the control's surface.
    explicit ControlWidget(TWinControl& control, QWidget* parent = nullptr);
    ~ControlWidget() override;

    TWinControl* Control() const { return control_; }
    /// The control goes: nothing is forwarded any more.
    void Detach() { control_ = nullptr; }
    bool InEvent() const { return depth_ > 0; }
    /// Some surface is in an event.
    static bool AnyInEvent() { return running_ > 0; }
    const String& HintAt(const QPoint& point) const;

    QSize sizeHint() const override;

    /// The surface that had the last mouse event, or none.
    static ControlWidget* LastUnderMouse();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool Handle(QEvent* event);
    void Press(QMouseEvent* event, bool twice);

    TWinControl* control_;
    int depth_ = 0;
    static int running_;
};

} // namespace vorn
