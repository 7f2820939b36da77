#include "labels/DrLabel.h"
#include "platform/controls/popup_menu.h"

namespace vorn {

TDRLabel::TDRLabel(TComponent* AOwner) : TLabel(AOwner), FFontColor(Font().Color())
{
    SetPictureXAlignment(TXAlign::alXRight);
    SetPictureYAlignment(TYAlign::alYTop);
    FImageChangeLink = std::make_unique<ImageLink>(*this);
    FImageChangeLink->OnChange = [this](TObject* sender) { ImageListChange(sender); };
    SetBounds(Left(), Top(), Width() + FDeep, Height() + FDeep);
}

TDRLabel::~TDRLabel()
{
    Destroying();
    if (FHolder)
        *FHolder = nullptr;
}

void TDRLabel::SetDeep(int value)
{
    if (value == FDeep || (value != 1 && value != 2))
        return;
    FDeep = static_cast<std::uint8_t>(value);
    Invalidate();
}

void TDRLabel::SetShadowColor(TColor value)
{
    if (value == FShadowColor)
        return;
    FShadowColor = value;
    Invalidate();
}

void TDRLabel::SetCtl3D(bool value)
{
    if (value == FCtl3D)
        return;
    FCtl3D = value;
    Invalidate();
}

void TDRLabel::SetBorder(TDRBorder value)
{
    if (value == FBorder)
        return;
    FBorder = value;
    Invalidate(); // the parent paints what lies under a transparent label anew, so no old frame stays
}

void TDRLabel::SetXPicture(int value)
{
    FXPicture = value;
    Repaint();
}

void TDRLabel::SetYPicture(int value)
{
    FYPicture = value;
    Repaint();
}

void TDRLabel::SetPictureXAlignment(TXAlign value)
{
    FPictureXAlignment = value;
    Repaint();
}

void TDRLabel::SetPictureYAlignment(TYAlign value)
{
    FPictureYAlignment = value;
    Repaint();
}

void TDRLabel::SetGliphVisible(bool value)
{
    FGliphVisible = value;
    Repaint();
}

void TDRLabel::SetImages(TCustomImageList* value)
{
    if (FImages)
        FImages->UnRegisterChanges(FImageChangeLink.get());
    FImages = value;
    if (FImages)
        FImages->RegisterChanges(FImageChangeLink.get());
    AdjustBounds();
}

void TDRLabel::SetImageIndex(int value)
{
    if (value == FImageIndex)
        return;
    FImageIndex = value;
    AdjustBounds();
}

void TDRLabel::SetBlinkTimer(TDRLabelTimer* value)
{
    if (value == BTimer())
        return;
    if (FInList)
        Leave();
    FBTimer = value ? value->SelfHandle() : nullptr;
}

void TDRLabel::SetGliphPopupMenu(TPopupMenu* value)
{
    if (FGliphPopupMenu && FGliphPopupMenu != value && FGliphPopupMenu != PopupMenu())
        FGliphPopupMenu->RemoveFreeNotification(this);
    FGliphPopupMenu = value;
    if (value) {
        value->ParentBiDiModeChanged(this);
        value->FreeNotification(this);
    }
}

void TDRLabel::ImageListChange(TObject* sender)
{
    if (sender == FImages)
        AdjustBounds();
}

void TDRLabel::Notification(TComponent* component, TOperation operation)
{
    TLabel::Notification(component, operation);
    if (operation != TOperation::opRemove)
        return;
    if (component == FGliphPopupMenu)
        SetGliphPopupMenu(nullptr);
    if (component == FImages)
        SetImages(nullptr);
    if (component == BTimer())
        SetBlinkTimer(nullptr);
}

void TDRLabel::AssignProperties(const TDRLabel* Source)
{
    if (!Source)
        return;
    SetAutoSize(Source->AutoSize());
    SetBorder(Source->Border());
    SetCtl3D(Source->Ct3D());
    SetShadowColor(Source->ShadowColor());
    SetDeep(Source->Deep());
    if (FImages != Source->Images())
        SetImages(Source->Images());
    else
        AdjustBounds();
    SetImageIndex(Source->ImageIndex());
    SetGliphVisible(Source->GliphVisible());
    SetXPicture(Source->XPicture());
    SetYPicture(Source->YPicture());
    SetPictureXAlignment(Source->PictureXAlignment());
    SetPictureYAlignment(Source->PictureYAlignment());
    SetGliphPopupMenu(Source->GliphPopupMenu());
    SetPopupMenu(Source->PopupMenu());

    GliphContextPopupOnClick = Source->GliphContextPopupOnClick;
    BlinkOnClick = Source->BlinkOnClick;
    OnGlyphClick = Source->OnGlyphClick;
    OnGliphContextPopup = Source->OnGliphContextPopup;
    OnLabelClick = Source->OnLabelClick;
    if (!OnSelect)
        OnSelect = Source->OnSelect;
    if (!OnSavePosEvent)
        OnSavePosEvent = Source->OnSavePosEvent;

    SetBlinkTimer(Source->BTimer());
    SetTransparent(Source->Transparent());
    Font().Assign(Source->Font());
    SetCursor(Source->Cursor());
}

} // namespace vorn
