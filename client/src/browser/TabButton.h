#pragma once

#include "TabStripItem.h"

#include "base/IDpiAdapter.h"

#include <QtWidgets/QPushButton>

class QToolButton;

/// One tab of the strip: icon, elided title and a close button. Checked while the tab is current.
class TabButton final : public QPushButton, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit TabButton(QWidget* parent = nullptr);

    void SetItem(const TabStripItem& item);
    /// The turn of the loading sign, counted up by the strip.
    void SetTick(int tick);

    QSize sizeHint() const override;

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigCloseClicked();

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int GetTextRoom() const;
    void PlaceClose();
    void Retranslate();
    void UpdateToolTip();

    TabStripItem m_item;
    int m_tick = 0;
    QToolButton* m_close;
};
