#include "platform/controls/drag_session.h"

#include "platform/controls/application.h"
#include "platform/controls/event_scope.h"

#include <QtCore/QMimeData>
#include <QtCore/QUuid>
#include <QtGui/QDrag>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPixmap>

#include <utility>

namespace vorn {

namespace {

const QString& TokenType()
{
    static const QString type = QStringLiteral("application/x-vorn-drag");
    return type;
}

DragCarrier& Carrier()
{
    static DragCarrier carrier;
    return carrier;
}

void CarryByWindowSystem(std::unique_ptr<QMimeData> data, const QImage& picture)
{
    // Not a child of the source's window, which a handler may free during the drag. The toolkit frees it.
    auto* drag = new QDrag(QCoreApplication::instance());
    drag->setMimeData(data.release());
    if (!picture.isNull()) {
        drag->setPixmap(QPixmap::fromImage(picture));
        drag->setHotSpot(picture.rect().center());
    }
    drag->exec(Qt::CopyAction);
}

} // namespace

DragSession* DragSession::current_ = nullptr;

DragSession::DragSession(TControl& source) : token_(QUuid::createUuid().toByteArray())
{
    source_.Set(&source);
    current_ = this;
}

DragSession::~DragSession()
{
    End();
}

void DragSession::End()
{
    if (current_ == this)
        current_ = nullptr;
}

void DragSession::Cancel()
{
    cancelled_ = true;
    accepted_ = false;
    if (!Carrier())
        QDrag::cancel();
}

DragSession* DragSession::Of(const QMimeData* data)
{
    const bool open = current_ && !current_->cancelled_ && current_->source_.Get();
    return open && data && data->data(TokenType()) == current_->token_ ? current_ : nullptr;
}

std::unique_ptr<QMimeData> DragSession::MakeData() const
{
    auto data = std::make_unique<QMimeData>();
    data->setData(TokenType(), token_);
    return data;
}

bool DragSession::Ask(TWinControl& target, TDragState state)
{
    bool accept = false;
    Raise(target.Events().OnDragOver, &target, source_.Get(), at_.X, at_.Y, state, accept);
    return accept && source_.Get();
}

void DragSession::Over(TWinControl& target, const TPoint& at)
{
    const bool entered = over_.Get() != &target;
    over_.Set(&target);
    at_ = at;
    accepted_ = false;
    try {
        const bool accept = Ask(target, entered ? TDragState::dsDragEnter : TDragState::dsDragMove);
        accepted_ = accept && !cancelled_;
    } catch (...) {
        over_.Set(nullptr);
        Cancel(); // what tells the user of it needs the mouse
        throw;
    }
}

void DragSession::Leave(TWinControl& target)
{
    if (over_.Get() != &target)
        return;
    over_.Set(nullptr);
    accepted_ = false;
    if (source_.Get())
        Ask(target, TDragState::dsDragLeave);
}

bool DragSession::Drop(TWinControl& target, const TPoint& at)
{
    if (!AcceptedBy(&target) || !source_.Get())
        return false;
    over_.Set(nullptr);
    accepted_ = false;
    taker_.Set(&target);
    takenAt_ = at;
    Raise(target.Events().OnDragDrop, &target, source_.Get(), at.X, at.Y);
    return true;
}

DragCarrier SetDragCarrier(DragCarrier carrier)
{
    return std::exchange(Carrier(), std::move(carrier));
}

void TControl::RunDrag(const QImage& picture)
{
    if (DragSession::Current())
        return;
    const TLifeWatch watch(this);
    DragSession session(*this);
    const EventPause pause;
    Application().HideHint();
    if (const DragCarrier carrier = Carrier())
        carrier(session.MakeData());
    else
        CarryByWindowSystem(session.MakeData(), picture);
    session.End();
    if (!watch.Alive())
        return;
    // The release went to the drag.
    pressed_ = false;
    if (auto* window = dynamic_cast<TWinControl*>(this))
        window->capture_ = nullptr;
    else if (parent_)
        parent_->capture_ = nullptr;
    RaiseEndDrag(session.Taker(), session.TakenAt());
}

void TControl::CancelDrag()
{
    DragSession* session = DragSession::Current();
    if (session && session->IsFrom(*this))
        session->Cancel();
}

void TControl::RaiseEndDrag(TObject* target, const TPoint& at)
{
    if (events_)
        Raise(events_->OnEndDrag, this, target, at.X, at.Y);
}

} // namespace vorn
