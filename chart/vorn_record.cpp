#include "chart/vorn_record.h"

namespace vorn {

TVornRec::TVornRec(TVornIEDBTerList*) {}

TVornRec::~TVornRec()
{
    if (!FLabel)
        return;
    FLabel->SetHolder(nullptr);
    if (!FLabel->InState(csDestroying))
        delete FLabel;
}

} // namespace vorn
