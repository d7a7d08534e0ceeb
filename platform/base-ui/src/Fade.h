#pragma once

#include <QtCore/QVariantAnimation>

class QWidget;

/// How far a widget that paints itself has come in or gone, from 0 to 1. At once where the system wants no
/// animations.
class Fade final : public QVariantAnimation
{
    Q_OBJECT

public:
    /// Repaints `widget`, which owns this.
    explicit Fade(QWidget* widget);
    ~Fade() override;

    qreal GetOpacity() const;
    /// `finished` follows, also when there is nothing to animate.
    void GoTo(qreal opacity);
    /// To 0 at once, with no word.
    void Reset();

private:
    QWidget* m_widget;
};
