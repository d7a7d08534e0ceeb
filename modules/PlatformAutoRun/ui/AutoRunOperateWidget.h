#pragma once

#include "base-ui/TLBaseWidget.h"
#include "base/IDpiAdapter.h"

#include <memory>

namespace Ui {
class AutoRunOperateWidget;
}

/// The two small buttons of a row, edit and delete. Knows nothing of entries; what a click means is the
/// row's. The row shows it while the mouse is over the row. GUI thread.
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
