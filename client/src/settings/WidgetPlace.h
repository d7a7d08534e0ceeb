#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

class QWidget;

/// Where a widget stands in a page, so that it is found again when the page has been made anew. In a page of
/// rows it is the row of the same content, wherever that stands now.
class WidgetPlace final
{
public:
    /// `widget` is `page` or one of its descendants.
    WidgetPlace(const QWidget* page, const QWidget* widget);

    /// The widget of this place in `page`; null when there is none, or when what stands there is another
    /// entry.
    QWidget* FindIn(QWidget* page) const;

private:
    struct Step
    {
        QString className;
        QString objectName;
        int index = 0;   ///< among siblings of this class and name
        QString content; ///< what a row says; empty for what is no row
    };

    static Step StepOf(const QWidget* widget);
    static QWidget* Take(QWidget* parent, const Step& step);

    QVector<Step> m_steps; ///< from the page down
};
