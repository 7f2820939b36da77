#pragma once

#include "platform/controls/button.h"
#include "platform/controls/form.h"
#include "platform/imaging/thumbnail_view.h"

namespace vorn {

/// The modal dialog in which the user picks a symbol from a list of thumbnails. Whoever runs it fills
/// ImageEnMView1, with the symbols' ids as image ids, and sets simb_id before ShowModal; after mrOk simb_id is the
/// chosen symbol.
class TvornSimbSelectDlg : public TForm {
public:
    explicit TvornSimbSelectDlg(TComponent* AOwner);
    ~TvornSimbSelectDlg() override;

    TButton* OKBtn;
    TButton* CancelBtn;
    TImageEnMView* ImageEnMView1;

    /// The symbol to preselect, if above 0, and the chosen one once the dialog was closed with OK. OK on an empty
    /// list leaves it.
    int simb_id = 0;

    void FormCreate(TObject* Sender);
    /// Selects the last thumbnail of simb_id, if there is one.
    void FormShow(TObject* Sender);
    /// Takes the chosen id over; lets the dialog close always.
    void FormCloseQuery(TObject* Sender, bool& CanClose);
    /// Acts like OK.
    void ImageEnMView1DblClick(TObject* Sender);

    /// The list leaves its keys to the dialog, which moves the selection by them.
    bool KeyDown(unsigned key, TShiftState shift) override;

private:
    void SetUpButton(TButton& button, int left, StringView caption, TModalResult result, int tabOrder);
    void SetUpList();
};

/// The dialog that was made last. Whoever made it owns it: it isn't none when the dialog is gone.
extern TvornSimbSelectDlg* vornSimbSelectDlg;

} // namespace vorn
