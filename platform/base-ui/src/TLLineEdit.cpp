#include "base-ui/TLLineEdit.h"

#include "CloseButton.h"
#include "ScaleWatch.h"
#include "Scaled.h"

#include <QtCore/QEvent>
#include <QtWidgets/QStyle>

namespace {

constexpr int clearSize = 20; // [px, unscaled]
constexpr int clearInset = 6; // [px, unscaled], from the edge of the field

} // namespace

TLLineEdit::TLLineEdit(QWidget* parent) : QLineEdit(parent)
{
    Construct();
}

TLLineEdit::TLLineEdit(const QString& text, QWidget* parent) : QLineEdit(text, parent)
{
    Construct();
}

TLLineEdit::~TLLineEdit() = default;

void TLLineEdit::Construct()
{
    m_clearButton = new CloseButton(clearSize, this);
    m_clearButton->setObjectName(QStringLiteral("clear_button"));
    m_clearButton->setFocusPolicy(Qt::NoFocus);
    m_clearButton->setCursor(Qt::ArrowCursor);
    connect(m_clearButton, &QAbstractButton::clicked, this, [this] {
        // As the user would do it, so that it can be undone.
        selectAll();
        del();
        setFocus(Qt::OtherFocusReason);
    });
    connect(this, &QLineEdit::textChanged, this, &TLLineEdit::PlaceClearButton);
    m_scaleWatch = std::make_unique<ScaleWatch>([this] {
        updateGeometry();
        PlaceClearButton();
    });
    Retranslate();
    PlaceClearButton();
}

QSize TLLineEdit::sizeHint() const
{
    const int height = qMax(Scaled(m_sizeClass == 1 ? 32 : 28), fontMetrics().height() + 2 * Scaled(4));
    return {fontMetrics().averageCharWidth() * 24, height};
}

QSize TLLineEdit::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 6, sizeHint().height()};
}

void TLLineEdit::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
    else if (event->type() == QEvent::EnabledChange || event->type() == QEvent::ReadOnlyChange)
        PlaceClearButton();
    QLineEdit::changeEvent(event);
}

void TLLineEdit::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    PlaceClearButton();
}

void TLLineEdit::showEvent(QShowEvent* event)
{
    // The size class is a plain field; this is where a new value is noticed.
    updateGeometry();
    QLineEdit::showEvent(event);
}

void TLLineEdit::Retranslate()
{
    m_clearButton->setAccessibleName(tr("Clear"));
    m_clearButton->setToolTip(tr("Clear"));
}

void TLLineEdit::PlaceClearButton()
{
    const bool useful = !text().isEmpty() && isEnabled() && !isReadOnly();
    m_clearButton->setVisible(useful);
    // The room is kept also while the button is not there, so that the text does not jump.
    const int room = Scaled(clearSize) + Scaled(4);
    const bool leftToRight = isLeftToRight();
    setTextMargins(leftToRight ? 0 : room, 0, leftToRight ? room : 0, 0);
    const QSize size = m_clearButton->sizeHint();
    const QRect place(width() - Scaled(clearInset) - size.width(), (height() - size.height()) / 2,
                      size.width(), size.height());
    m_clearButton->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}
