#include "base-ui/TLLineEdit.h"

#include "CloseButton.h"
#include "FieldFrame.h"
#include "ScaleWatch.h"
#include "Scaled.h"
#include "ThemedColor.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace {

// [px, unscaled]
constexpr int ClearSize = 20;
constexpr int ClearInset = 6;
constexpr int TextInset = 8;

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
    setFrame(false);
    setAttribute(Qt::WA_Hover);
    m_clearButton = new CloseButton(ClearSize, this);
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
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    } else if (event->type() == QEvent::EnabledChange || event->type() == QEvent::ReadOnlyChange) {
        PlaceClearButton();
    }
    QLineEdit::changeEvent(event);
}

void TLLineEdit::paintEvent(QPaintEvent* event)
{
    const QPalette& colors = palette();
    QColor fill = ThemedColor(m_fieldColor, colors, QPalette::Base);
    QColor border = ThemedColor(m_borderColor, colors, QPalette::Dark);
    if (!isEnabled()) {
        fill = ThemedColor(m_disabledFieldColor, colors, QPalette::Window);
        border = ThemedColor(m_disabledBorderColor, colors, QPalette::Mid);
    } else if (hasFocus()) {
        border = ThemedColor(m_focusColor, colors, QPalette::Highlight);
    } else if (underMouse()) {
        border = ThemedColor(m_hoverColor, colors, QPalette::Shadow);
    }
    {
        QPainter painter(this);
        FieldFrame::PaintFill(&painter, rect(), fill);
    }
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    FieldFrame::PaintBorder(&painter, rect(), border, hasFocus());
}

void TLLineEdit::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    PlaceClearButton();
}

void TLLineEdit::showEvent(QShowEvent* event)
{
    // The size class is a plain field, so this is the place to notice a new value.
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
    // Reserves the room while the button is hidden, too, so that the text does not jump.
    const int start = Scaled(TextInset);
    const int end = Scaled(ClearInset) + Scaled(ClearSize) + Scaled(4);
    const bool leftToRight = isLeftToRight();
    setTextMargins(leftToRight ? start : end, 0, leftToRight ? end : start, 0);
    const QSize size = m_clearButton->sizeHint();
    const QRect place(width() - Scaled(ClearInset) - size.width(), (height() - size.height()) / 2,
                      size.width(), size.height());
    m_clearButton->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}
