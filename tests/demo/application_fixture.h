#pragma once

#include "tests/demo/window_fixture.h"

#include <QTableView>

#include <stdexcept>
#include <string>

namespace vorn::demo {

/// The window with its treatments, found by their keys.
class ApplicationFixture : public WindowTest {
protected:
    QString File() const { return Path(QStringLiteral("studio.db")); }

    TDRLabel& LabelOfKey(int key)
    {
        for (const TVornRec* record : session_->Chart().ListVornRec())
            if (record->FLabel && record->FLabel->Tag() == key)
                return *record->FLabel;
        throw std::runtime_error("no label with key " + std::to_string(key));
    }

    int CurrentKey() { return session_->Treatments().FieldByName(u"ID").AsInteger(); }
    QTableView& Grid() { return *window_->findChild<QTableView*>(QStringLiteral("prestazioni")); }
};

} // namespace vorn::demo
