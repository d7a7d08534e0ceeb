#include "system/QuestionWatch.h"

#include <QtCore/QEvent>
#include <QtCore/QMetaEnum>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>

namespace {

const QString DialogName = QStringLiteral("packaged_msg_box");

QString ToName(int button)
{
    const char* const name = QMetaEnum::fromType<QDialogButtonBox::StandardButtons>().valueToKey(button);
    return name ? QString::fromLatin1(name) : QString::number(button);
}

} // namespace

QuestionWatch::QuestionWatch(QObject* parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

QuestionWatch::~QuestionWatch() = default;

bool QuestionWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && watched->objectName() == DialogName) {
        if (auto* const dialog = qobject_cast<QDialog*>(watched)) {
            HandleQuestion(dialog);
        }
    }
    return QObject::eventFilter(watched, event);
}

void QuestionWatch::HandleQuestion(QDialog* dialog)
{
    const QString text = dialog->accessibleName();
    connect(dialog, &QDialog::finished, this,
            [this, text](int button) { Q_EMIT SigAnswered(text, ToName(button)); });
    Q_EMIT SigAsked(text);
}
