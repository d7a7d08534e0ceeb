#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

class QWidget;

/// Where a widget stands in a page, to find it again after the page was rebuilt. In a page of rows this is
/// the row of the same content, wherever that stands now.
class WidgetPlace final
{
public:
    /// `widget` is `page` or one of its descendants.
    WidgetPlace(const QWidget* page, const QWidget* widget);

    /// The widget of this place in `page`; null when nothing or another entry stands there.
    QWidget* FindIn(QWidget* page) const;

private:
    struct Step
    {
        QString className;
        QString objectName;
        int index = 0;   ///< among siblings of this class and name
        QString content; ///< what a row says; empty unless it is one
    };

    static Step StepOf(const QWidget* widget);
    static QWidget* Follow(QWidget* parent, const Step& step);

    QVector<Step> m_steps; ///< from the page down
};
