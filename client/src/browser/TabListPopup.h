#pragma once

#include "base/IDpiAdapter.h"

#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtWidgets/QFrame>

class QLineEdit;
class QListWidget;

/// The list of all tabs, with a field to narrow it down. Deletes itself when it closes.
class TabListPopup final : public QFrame, public IDpiAdapter
{
    Q_OBJECT

public:
    TabListPopup(const QStringList& titles, int current, QWidget* parent);

    /// Shows the list below the widget, inside of its screen.
    void PopUp(QWidget* anchor);

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigChosen(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Place();
    void Narrow(const QString& text);
    void Choose();

    QLineEdit* m_search;
    QListWidget* m_list;
    QPointer<QWidget> m_anchor;
};
