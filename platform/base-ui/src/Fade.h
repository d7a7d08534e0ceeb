#pragma once

#include <QtCore/QVariantAnimation>

class QWidget;

/// How far a widget that paints itself has faded in, from 0 to 1. Jumps where the system wants no animations.
class Fade final : public QVariantAnimation
{
    Q_OBJECT

public:
    /// Repaints `widget`, which owns this.
    explicit Fade(QWidget* widget);
    ~Fade() override;

    qreal GetOpacity() const;
    /// `finished` follows even when there is nothing to animate.
    void GoTo(qreal opacity);
    /// Goes to 0 at once, without a signal.
    void Reset();

private:
    QWidget* m_widget;
};
