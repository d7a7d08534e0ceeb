#pragma once

#include <QtCore/QObject>
#include <QtCore/QVector>

class QWidget;

/// Gives names for screen readers to the controls of a page that has none: a check box is named after the
/// entry in its row, a picture button after what it does there, a field after the label before it. Updates
/// them as rows come, go and change. Names that the page itself gives stay. A child of `page`. GUI thread.
class AccessibleNames final : public QObject
{
    Q_OBJECT

public:
    explicit AccessibleNames(QWidget* page);
    ~AccessibleNames() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Watch(QWidget* widget);
    void UpdateLater();
    void Update();
    void Name(QWidget* widget, const QVector<QWidget*>& order) const;

    QWidget* m_page;
    bool m_pending = false;
};
