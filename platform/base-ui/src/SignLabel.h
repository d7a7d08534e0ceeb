#pragma once

#include "Sign.h"

#include <QtWidgets/QWidget>

/// A sign in the palette's `PlaceholderText`.
class SignLabel final : public QWidget
{
    Q_OBJECT

public:
    SignLabel(Sign sign, QWidget* parent);
    ~SignLabel() override;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Sign m_sign;
};
