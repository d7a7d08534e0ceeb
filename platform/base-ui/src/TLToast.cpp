#include "base-ui/TLToast.h"

#include "ActiveWindow.h"
#include "AlertAccessible.h"
#include "Fade.h"
#include "ScaleWatch.h"
#include "Scaled.h"
#include "SignPainter.h"
#include "ThemedColor.h"

#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace {

// [px, unscaled]
constexpr int FromTop = 56;
constexpr int FromSides = 16;
constexpr int Widest = 480;
constexpr int PaddingX = 14;
constexpr int PaddingY = 9;
constexpr int CornerRadius = 8;
constexpr int SignSize = 16;
constexpr int SignGap = 8;

Sign SignFor(int type)
{
    switch (type) {
    case ToastType::Success:
        return Sign::Success;
    case ToastType::Warning:
        return Sign::Warning;
    case ToastType::Error:
        return Sign::Error;
    default:
        return Sign::Information;
    }
}

} // namespace

TLToast::TLToast(QWidget* window)
    : QLabel(window), m_timer(new QTimer(this)), m_fade(std::make_unique<Fade>(this))
{
    setObjectName(QStringLiteral("toast"));
    AlertAccessible::Install();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::PlainText);
    hide();
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &TLToast::Leave);
    connect(m_fade.get(), &QVariantAnimation::finished, this, [this] {
        if (m_fade->GetOpacity() <= 0) {
            deleteLater();
        }
    });
    m_scaleWatch = std::make_unique<ScaleWatch>([this] { Adjust(); });
    window->installEventFilter(this);
}

TLToast::~TLToast() = default;

void TLToast::Show(const QString& text, int type, int duration)
{
    QWidget* const window = FindActiveWindow();
    if (window == nullptr || text.isEmpty()) {
        return;
    }
    auto* toast = window->findChild<TLToast*>(QString(), Qt::FindDirectChildrenOnly);
    if (toast == nullptr) {
        toast = new TLToast(window);
    }
    toast->Say(text, type, duration);
}

int TLToast::GetToastType() const noexcept
{
    return m_type;
}

void TLToast::Say(const QString& text, int type, int duration)
{
    const bool known = type >= ToastType::Information && type <= ToastType::Error;
    m_type = known ? type : ToastType::Information;
    setText(text);
    setAccessibleName(text);
    // The theme's rules depend on the type.
    style()->unpolish(this);
    style()->polish(this);
    Adjust();
    show();
    raise();
    m_timer->start(duration);
    m_fade->GoTo(1);
    AlertAccessible::Announce(this);
}

void TLToast::Leave()
{
    m_fade->GoTo(0);
}

bool TLToast::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        Adjust();
    }
    return QLabel::eventFilter(watched, event);
}

void TLToast::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Adjust();
    }
}

void TLToast::Adjust()
{
    const QWidget* const window = parentWidget();
    const int around = 2 * Scaled(PaddingX) + Scaled(SignSize) + Scaled(SignGap);
    const int room = qMin(Scaled(Widest), window->width() - 2 * Scaled(FromSides)) - around;
    const QRect needed = fontMetrics().boundingRect(QRect(0, 0, qMax(room, 1), QWIDGETSIZE_MAX),
                                                    Qt::AlignLeft | Qt::TextWordWrap, text());
    const QSize size(needed.width() + around, qMax(needed.height(), Scaled(SignSize)) + 2 * Scaled(PaddingY));
    const int top = qMax(0, qMin(Scaled(FromTop), window->height() - size.height() - Scaled(FromSides)));
    setGeometry((window->width() - size.width()) / 2, top, size.width(), size.height());
    update();
}

void TLToast::paintEvent(QPaintEvent*)
{
    const QPalette& colors = palette();
    const QColor text = ThemedColor(m_textColor, colors, QPalette::ToolTipText);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_fade->GetOpacity());
    const qreal line = Scaled(1);
    painter.setPen(QPen(ThemedColor(m_borderColor, colors, QPalette::ToolTipBase), line));
    painter.setBrush(ThemedColor(m_toastColor, colors, QPalette::ToolTipBase));
    painter.drawRoundedRect(QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2),
                            Scaled(CornerRadius), Scaled(CornerRadius));

    const QRect body = rect().adjusted(Scaled(PaddingX), 0, -Scaled(PaddingX), 0);
    const QRect sign = QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter,
                                           QSize(Scaled(SignSize), Scaled(SignSize)), body);
    SignPainter::Paint(&painter, sign, SignFor(m_type), m_signColor.isValid() ? m_signColor : text);
    const int lead = Scaled(SignSize) + Scaled(SignGap);
    painter.setPen(text);
    painter.drawText(QStyle::visualRect(layoutDirection(), body, body.adjusted(lead, 0, 0, 0)),
                     int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)) |
                         Qt::TextWordWrap,
                     QLabel::text());
}
