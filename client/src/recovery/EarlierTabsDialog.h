#pragma once

#include "EarlierTabSet.h"
#include "browser/PictureLoader.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QVector>
#include <QtWidgets/QDialog>

class EarlierTabsModel;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QTreeView;

/// Offers the tabs of earlier runs, to tick and open again. Opens nothing itself. Follows language, theme
/// and scale while it is shown. GUI thread.
class EarlierTabsDialog final : public QDialog, public IDpiAdapter
{
    Q_OBJECT

public:
    /// `sets`: the newest first; without any the dialog says what would stand here. `loadPicture` fetches
    /// the icons of the rows in sight, and may be empty.
    explicit EarlierTabsDialog(const QVector<EarlierTabSet>& sets, const PictureLoader& loadPicture = {},
                               QWidget* parent = nullptr);

    void AdjustForDpi() override;

Q_SIGNALS:
    /// The user wants these, in the order shown; never empty. The dialog is accepted right after.
    void SigOpen(const QVector<TabRecord>& tabs);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void OpenTicked();
    void UpdateOpen();
    void Retranslate();

    EarlierTabsModel* m_model;
    QLabel* m_intro;
    QLabel* m_empty;
    QTreeView* m_tree;
    QHBoxLayout* m_buttons;
    QPushButton* m_open;
    QPushButton* m_close;
};
