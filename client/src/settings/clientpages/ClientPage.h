#pragma once

#include "base/IDpiAdapter.h"
#include "frame-core/SettingItemBaseWidget.h"

#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>

class QFrame;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;

/// One of the client's own settings pages: cards with rows, each with a name, a line that explains it and a
/// control. Follows language, scale and search while it is shown. GUI thread.
class ClientPage : public SettingItemBaseWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit ClientPage(QWidget* parent = nullptr);
    ~ClientPage() override;

    void SetKeyword(const QString& keyword) override;
    void AdjustForDpi() override;

    /// Updates what may have changed elsewhere. Does nothing by default.
    virtual void ShowState();

protected:
    /// Gives the current text; called again when the language changes.
    using Text = std::function<QString()>;

    /// A new card at the end of the page.
    void AddCard();
    /// A row of the last card. `control` stands at its right and is named after the row; null: none.
    /// `explanation` may be empty.
    void AddRow(const Text& name, const Text& explanation, QWidget* control);
    /// A paragraph of the last card.
    QLabel* AddParagraph(const Text& text);
    /// Something that takes the width of the last card.
    void AddWide(QWidget* widget);
    /// Texts of controls: `apply` runs now and when the language changes.
    void AddTexts(const std::function<void()>& apply);

    void changeEvent(QEvent* event) override;

private:
    struct Row
    {
        QHBoxLayout* layout;
        QVBoxLayout* texts;
    };
    struct Shown
    {
        QLabel* label;
        Text text;
    };

    QLabel* AddLabel(const QString& objectName, const Text& text);
    void Retranslate();

    QVBoxLayout* m_column;
    QVector<QVBoxLayout*> m_cards;
    QVector<Row> m_rows;
    QVector<Shown> m_labels;
    QVector<std::function<void()>> m_texts;
    QString m_keyword;
};
