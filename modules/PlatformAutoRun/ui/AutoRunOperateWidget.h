#pragma once

#include "base-ui/TLBaseWidget.h"
#include "base/IDpiAdapter.h"

#include <memory>

namespace Ui {
class AutoRunOperateWidget;
}

/// A row's two small buttons, edit and delete. Knows nothing of entries; the row decides what a click means,
/// and shows the buttons while the mouse is over it. GUI thread.
class AutoRunOperateWidget final : public TLBaseWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit AutoRunOperateWidget(QWidget* parent = nullptr);
    ~AutoRunOperateWidget() override;

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigEdit();
    /// The receiver may destroy this widget.
    void SigDelete();

private:
    Q_DISABLE_COPY(AutoRunOperateWidget)

    std::unique_ptr<Ui::AutoRunOperateWidget> m_ui;
};
