#pragma once

#include "base/IDpiAdapter.h"

#include <QtCore/QList>
#include <QtCore/QObject>

/// Applies the scale that the user chose: to the sizes of the widgets, which is what `DpiTool` is for, and to
/// the application's font, which follows the scale of the screen as well. Made once, after the QApplication
/// and before the `ThemeManager`: widgets that a style sheet has touched take a new font from it only, and
/// the theme applies itself anew after this. GUI thread.
class ScaleManager final : public QObject, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit ScaleManager(QObject* parent = nullptr);
    ~ScaleManager() override;

    /// What can be chosen [%].
    static QList<int> GetScales();
    /// What was chosen [%]; 100 until `Apply` is called.
    int GetScale() const noexcept { return m_scale; }

    /// One of `GetScales`; anything else counts as 100. Takes effect at once.
    void Apply(int scale);

    void AdjustForDpi() override;

private:
    int m_scale = 100;
    int m_fontSize; ///< [px] at the scale of 1
};
