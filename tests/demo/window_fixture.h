#pragma once

#include "demo/main_window.h"
#include "tests/demo/sample_copy.h"
#include "tests/support/mouse.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QSlider>
#include <QTemporaryDir>

namespace vorn::demo {

/// The window on a sample database of its own, with what a user does in it.
class WindowTest : public testing::Test {
protected:
    void SetUp() override
    {
        CopySample(Path(QStringLiteral("studio.db")));
        Start();
    }

    QString Path(const QString& name) const { return folder_.filePath(name); }

    void Start(int patient = AdultPatient)
    {
        window_.reset();
        session_.reset();
        session_ = std::make_unique<ChartSession>(Path(QStringLiteral("studio.db")), ChartSession::Setting::Window);
        window_ = std::make_unique<MainWindow>(*session_);
        window_->show();
        window_->ShowPatient(patient);
        test::ProcessEvents();
    }

    QAction& Action(const QString& text)
    {
        for (QAction* action : window_->findChildren<QAction*>())
            if (action->text() == text)
                return *action;
        throw std::runtime_error("no action " + text.toStdString());
    }
    void Trigger(const QString& text) { Action(text).trigger(); }
    QSlider& Slider(const QString& name) { return *window_->findChild<QSlider*>(name); }

    const TZone& Zone(StringView name)
    {
        for (const TZone* zone : session_->Chart().ZoneList())
            if (zone->numZona == name)
                return *zone;
        throw std::runtime_error("no such zone");
    }
    /// A point of a zone that no label and no other control covers; view coordinates at 100 percent.
    TPoint FreePoint(const TZone& zone)
    {
        const TRect area = zone.rectOffeset;
        for (int y = area.Top + 1; y < area.Bottom - 1; ++y) {
            for (int x = area.Left + 1; x < area.Right - 1; ++x) {
                bool free = true;
                for (int i = 0; free && i < session_->View().ControlCount(); ++i) {
                    const TControl& control = *session_->View().Controls(i);
                    free = !control.Visible() || !PtInRect(control.BoundsRect(), {x, y});
                }
                if (free)
                    return {x, y};
            }
        }
        throw std::runtime_error("the zone is covered");
    }
    void ClickZone(StringView name) { test::Mouse().Click(session_->View(), FreePoint(Zone(name))); }

    QTemporaryDir folder_;
    std::unique_ptr<ChartSession> session_;
    std::unique_ptr<MainWindow> window_;
};

} // namespace vorn::demo
