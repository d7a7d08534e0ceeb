#pragma once

#include "frame-core/IBrowserMain.h"

#include <QtWidgets/QWidget>

/// A browser that is a window and nothing else.
class PreviewBrowser final : public IBrowserMain
{
public:
    int GetTabCount() const override { return 0; }
    void SelectTab(int) override {}
    IBrowserTab* GetTab(int) const override { return nullptr; }
    QWidget* GetMainWidget() const override { return const_cast<QWidget*>(&window); }

    QWidget window;
};
