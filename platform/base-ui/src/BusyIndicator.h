#pragma once

#include <QtWidgets/QWidget>

class QVariantAnimation;

/// A ring that turns while it is visible, in the palette's `Highlight` on `Mid`.
class BusyIndicator final : public QWidget
{
    Q_OBJECT

public:
    explicit BusyIndicator(QWidget* parent);
    ~BusyIndicator() override;

    QSize sizeHint() const override;

protected:
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QVariantAnimation* m_turn;
};
