#pragma once

#include <QtWidgets/QAbstractButton>

/// A cross. Its colours are the palette's `WindowText` and `Midlight`, its ring of focus `Highlight`.
class CloseButton final : public QAbstractButton
{
    Q_OBJECT

public:
    /// `size` [px, unscaled] of the square that takes clicks.
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
