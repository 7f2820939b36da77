#include "chart/chart_settings.h"

namespace vorn {

void TChartSettings::Forget(const TComponent* component)
{
    for (TDataSource** source : {&Catalogue, &Diagnoses, &Record, &Appearance})
        if (component == *source)
            *source = nullptr;
    if (component == DefaultLabel)
        DefaultLabel = nullptr;
}

} // namespace vorn
