#pragma once

#include "base/IDpiAdapter.h"

#include <QtGui/QIcon>
#include <QtWidgets/QWidget>

/// Shows an icon, sharp at every scale and recoloured with the theme. Takes no focus and has no accessible
/// name: the text beside it says what it means.
class IconLabel final : public QWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    /// `size` is width and height [px, unscaled].
    explicit IconLabel(int size, QWidget* parent = nullptr);

    void SetIcon(const QIcon& icon);

    void AdjustForDpi() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_size;
    QIcon m_icon;
};
