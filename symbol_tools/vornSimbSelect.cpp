#include "symbol_tools/vornSimbSelect.h"

namespace vorn {

TvornSimbSelectDlg* vornSimbSelectDlg = nullptr;

TvornSimbSelectDlg::TvornSimbSelectDlg(TComponent* AOwner) : TForm(AOwner)
{
    OKBtn = new TButton(this);
    OKBtn->SetName(u"OKBtn");
    CancelBtn = new TButton(this);
    CancelBtn->SetName(u"CancelBtn");
    ImageEnMView1 = new TImageEnMView(this);
    ImageEnMView1->SetName(u"ImageEnMView1");

    SetBounds(227, 108, 386, 276);
    SetPosition(TPosition::poScreenCenter);
    SetBorderStyle(TFormBorderStyle::bsDialog);
    SetCaption(u"Seleziona Simbolo grafico");
    SetColor(clBtnFace);
    SetParentFont(true);

    SetUpButton(*OKBtn, 116, u"OK", mrOk, 0);
    OKBtn->SetDefault(true);
    SetUpButton(*CancelBtn, 197, u"Cancel", mrCancel, 1);
    CancelBtn->SetCancel(true);
    SetUpList();
    SetActiveControl(ImageEnMView1);

    OnCreate = [this](TObject* Sender) { FormCreate(Sender); };
    OnShow = [this](TObject* Sender) { FormShow(Sender); };
    OnCloseQuery = [this](TObject* Sender, bool& CanClose) { FormCloseQuery(Sender, CanClose); };
    DoCreate();
}

TvornSimbSelectDlg::~TvornSimbSelectDlg()
{
    Destroying();
}

void TvornSimbSelectDlg::SetUpButton(TButton& button, int left, StringView caption, TModalResult result, int tabOrder)
{
    button.SetBounds(left, 243, 75, 25);
    button.SetCaption(caption);
    button.SetModalResult(result);
    button.SetTabOrder(tabOrder);
    button.SetParent(this);
}

void TvornSimbSelectDlg::SetUpList()
{
    ImageEnMView1->SetBounds(8, 8, 370, 229);
    ImageEnMView1->SetBackground(clWhite);
    ImageEnMView1->SetStoreType(TIEStoreType::ietThumb);
    ImageEnMView1->SetThumbWidth(40);
    ImageEnMView1->SetThumbHeight(40);
    ImageEnMView1->SetHorizBorder(1);
    ImageEnMView1->SetVertBorder(1);
    ImageEnMView1->SetKeyInteract(0);
    ImageEnMView1->SetGridWidth(-1);
    ImageEnMView1->SetThumbnailsBorderColor(clBlack);
    ImageEnMView1->SetTabOrder(2);
    ImageEnMView1->Events().OnDblClick = [this](TObject* Sender) { ImageEnMView1DblClick(Sender); };
    ImageEnMView1->SetParent(this);
}

void TvornSimbSelectDlg::FormCreate(TObject*)
{
    simb_id = 0;
}

void TvornSimbSelectDlg::FormShow(TObject*)
{
    ImageEnMView1->SetSelectedImageAlwaysVisible(true);
    if (simb_id <= 0)
        return;
    for (int i = 0; i < ImageEnMView1->GetImageCount(); ++i) {
        if (ImageEnMView1->GetImageID(i) == simb_id)
            ImageEnMView1->SetSelectedItem(i);
    }
}

void TvornSimbSelectDlg::FormCloseQuery(TObject*, bool&)
{
    if (ModalResult() == mrOk && ImageEnMView1->SelectedImage() > -1)
        simb_id = ImageEnMView1->GetImageID(ImageEnMView1->SelectedImage());
}

bool TvornSimbSelectDlg::KeyDown(unsigned key, TShiftState shift)
{
    return (ImageEnMView1->Focused() && ImageEnMView1->MoveSelection(key)) || TForm::KeyDown(key, shift);
}

void TvornSimbSelectDlg::ImageEnMView1DblClick(TObject*)
{
    SetModalResult(mrOk);
}

} // namespace vorn
