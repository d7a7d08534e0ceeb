#pragma once

#include "base/IDpiAdapter.h"

#include <QtCore/QList>
#include <QtCore/QObject>

/// Applies the chosen scale to the sizes of the widgets, through `DpiTool`, and to the application's font,
/// which also follows the scale of the screen. Make one, after the QApplication and before the
/// `ThemeManager`: styled widgets get a new font only when the style sheet is applied again, which the theme
/// does after this. GUI thread.
class ScaleManager final : public QObject, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit ScaleManager(QObject* parent = nullptr);
    ~ScaleManager() override;

    /// The scales that the user can choose [%].
    static QList<int> GetScales();
    /// The scale last applied [%]; 100 before the first `Apply`.
    int GetScale() const noexcept { return m_scale; }

    /// One of `GetScales`; any other value counts as 100. Takes effect immediately.
    void Apply(int scale);

    void AdjustForDpi() override;

private:
    int m_scale = 100;
    int m_fontSize; ///< [px] at scale 1
};
