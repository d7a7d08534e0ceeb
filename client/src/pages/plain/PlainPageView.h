#pragma once

#include "base/IDpiAdapter.h"

#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtWidgets/QWidget>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

/// The widget of a plain page: title, address, the text, a line about it, and a button that opens the address
/// in the system's browser. Every text is shown as plain text.
class PlainPageView final : public QWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    /// What the line below the text says.
    enum class Note
    {
        None,
        Cut,    ///< only the first part is shown
        NotText ///< the answer is not text; needs a type
    };

    explicit PlainPageView(QWidget* parent = nullptr);

    /// Empties the page before the first load.
    void SetContent(const QUrl& address, const QString& title, const QString& text, Note note,
                    const QString& type = QString(), qint64 size = -1);

    QString GetText() const;
    /// Moves on to the next hit; returns how many there are.
    int Find(const QString& text, bool backward);
    void SetZoom(double factor);

    void AdjustForDpi() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void Retranslate();

    QLabel* m_title;
    QHBoxLayout* m_row;
    QLineEdit* m_address;
    QPushButton* m_open;
    QPlainTextEdit* m_text;
    QLabel* m_note;
    QUrl m_url;
    Note m_noteKind = Note::None;
    QString m_type;
    qint64 m_size = -1;
    double m_zoom = 1;
};
