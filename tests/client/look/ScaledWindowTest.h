#pragma once

#include "MainWindowTest.h"

#include "EarlierTabsDialog.h"
#include "HomePage.h"

#include <QtGui/QFont>
#include <QtWidgets/QApplication>

#include <memory>

/// A main window whose scale changes while it is shown. The destructor restores scale, font and style sheet.
class ScaledWindowTest : public MainWindowTest
{
protected:
    ~ScaledWindowTest() override;

    /// Changes the scale, and the application's font with it as the client does.
    void SetScale(double scale);
    /// A home page with red icons.
    std::unique_ptr<HomePage> MakeHome();
    /// A declined set of two tabs.
    static EarlierTabSet MakeEarlierSet();

private:
    const QFont m_font = QApplication::font();
};
