#pragma once

#include "platform/controls/win_control.h"

class QEventLoop;

namespace vorn {

enum class TFormBorderStyle : std::uint8_t { bsNone, bsSingle, bsSizeable, bsDialog };
enum class TPosition : std::uint8_t { poDesigned, poScreenCenter };

/// How a modal form was ended.
using TModalResult = int;
inline constexpr TModalResult mrNone = 0;
inline constexpr TModalResult mrOk = 1;
inline constexpr TModalResult mrCancel = 2;

/// May set `CanClose` to false to keep the form open.
using TCloseQueryEvent = std::function<void(TObject* Sender, bool& CanClose)>;

/// A window of its own or, with a parent, a panel that floats inside that control.
///
/// Starts hidden. Left and Top are screen pixels without a parent and pixels of the parent's client area with one.
/// Width and Height are those of the client area: the frame is the window system's. Hiding or closing never frees it.
class TForm : public TWinControl {
public:
    explicit TForm(TComponent* owner);
    /// Ends a modal run first.
    ~TForm() override;

    TFormBorderStyle BorderStyle() const { return borderStyle_; }
    /// Means nothing while the form lies inside another control.
    void SetBorderStyle(TFormBorderStyle style);
    TPosition Position() const { return position_; }
    /// Looked at when the form is shown as a window.
    void SetPosition(TPosition position) { position_ = position; }
    bool AutoSize() const { return autoSize_; }
    /// The form is as large as its visible child controls reach, now and whenever they change.
    void SetAutoSize(bool autoSize);
    bool ShowHint() const { return showHint_; }
    /// Whether the hints of the controls inside are shown. Starts false.
    void SetShowHint(bool show) { showHint_ = show; }
    bool ParentFont() const { return parentFont_; }
    /// The form takes over its parent's font when it gets one.
    void SetParentFont(bool parentFont) { parentFont_ = parentFont; }
    TWinControl* ActiveControl() const { return activeControl_; }
    /// Gets the keyboard when the form is shown; with none the first in the order of Tab gets it.
    void SetActiveControl(TWinControl* control);

    void Show();
    /// A modal form is asked to close with mrCancel instead.
    void Hide() { SetVisible(false); }
    /// Hides the form if CloseQuery agrees. A modal form ends with mrCancel.
    void Close();
    /// Whether OnCloseQuery, if assigned, lets the form close.
    bool CloseQuery();

    /// Shows the form as a window that blocks the others and waits until ModalResult is set and CloseQuery
    /// agrees. Gives the result; mrCancel if the form was closed by its frame or freed meanwhile, or if OnShow
    /// failed. Raises EInvalidOperation for a form that is shown already or lies inside another control.
    /// Exceptions of handlers go to the application, not out of here.
    TModalResult ShowModal();
    TModalResult ModalResult() const { return modalResult_; }
    /// Another value than mrNone ends ShowModal once the running event is done; if CloseQuery refuses, it is mrNone
    /// again.
    void SetModalResult(TModalResult result);

    TNotifyEvent OnCreate;
    TNotifyEvent OnShow;
    TCloseQueryEvent OnCloseQuery;

    void SetBounds(int left, int top, int width, int height) override;
    void SetParent(TWinControl* parent) override;
    void SetVisible(bool visible) override;
    /// Enter presses the Default button, Escape the Cancel button.
    bool KeyDown(unsigned key, TShiftState shift) override;

protected:
    /// Raises OnCreate. A descendant calls it at the end of its constructor.
    void DoCreate() { Raise(OnCreate, this); }
    QWidget* CreateWidget() override;
    void ChildrenChanged() override;
    void TextChanged() override;
    bool ShowsHints() const override { return showHint_; }
    void Notification(TComponent* component, TOperation operation) override;

private:
    class Window;

    void PrepareWindow(bool modal);
    void LimitSize();
    void FitToContents();
    void GiveFocus();
    bool FocusNext(bool forward);
    TModalResult RunModal();
    bool MayEndModal();
    void WindowGone();

    Window* window_ = nullptr;   // valid while the window lives
    QEventLoop* loop_ = nullptr; // runs while the form is modal
    TWinControl* activeControl_ = nullptr;
    TModalResult modalResult_ = mrNone;
    TFormBorderStyle borderStyle_ = TFormBorderStyle::bsSizeable;
    TPosition position_ = TPosition::poDesigned;
    bool autoSize_ = false;
    bool showHint_ = false;
    bool parentFont_ = false;
    bool showing_ = false;
    bool modal_ = false;
    bool endRequested_ = false;
};

using TCustomForm = TForm;

/// The form in which a control lies, the control itself included; none if there is none.
TForm* GetParentForm(TControl* control);

} // namespace vorn
