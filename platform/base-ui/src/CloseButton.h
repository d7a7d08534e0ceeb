#pragma once

#include <QtWidgets/QAbstractButton>

/// A cross. It uses the palette's `WindowText` and `Midlight`, and `Highlight` for the focus ring.
class CloseButton final : public QAbstractButton
{
    Q_OBJECT

public:
    /// `size` is the edge of the square that takes clicks [px, unscaled].
    CloseButton(int size, QWidget* parent);
    ~CloseButton() override;

    QSize sizeHint() const override;

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int m_size;
};
