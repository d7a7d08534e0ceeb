#pragma once

#include <QtGui/QIcon>
#include <QtWidgets/QWidget>

/// Shows an icon, sharp at every scale of the screen and recoloured with the theme. Not for the keyboard
/// and without a name of its own: the text beside it says what it means.
class IconLabel final : public QWidget
{
    Q_OBJECT

public:
    /// `size` is width and height [px].
    explicit IconLabel(int size, QWidget* parent = nullptr);

    void SetIcon(const QIcon& icon);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon m_icon;
};
