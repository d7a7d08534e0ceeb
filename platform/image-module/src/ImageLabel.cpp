#include "image-module/ImageLabel.h"

#include "http/VXImageCache.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

namespace {

// A picture scaled to these pixels may be half a pixel too large, which nobody sees.
QRectF Centred(const QSizeF& size, const QSizeF& around)
{
    return QRectF(QPointF((around.width() - size.width()) / 2, (around.height() - size.height()) / 2), size);
}

} // namespace

ImageLabel::ImageLabel(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

ImageLabel::~ImageLabel() = default;

void ImageLabel::SetPixmapParam(int width, int height, int xRadius, int yRadius)
{
    m_boxSize = QSize(width, height);
    m_xRadius = xRadius;
    m_yRadius = yRadius;
    m_drawn = QPixmap();
    updateGeometry();
    update();
}

void ImageLabel::SetPluginMask(int radius)
{
    m_maskRadius = radius;
    m_drawn = QPixmap();
    update();
}

void ImageLabel::SetImage(const QString& url, const QString& defaultImage)
{
    m_defaultImage = defaultImage;
    if (url.isEmpty() || url != m_url) {
        ShowPicture(defaultImage.isEmpty() ? QImage() : QImage(defaultImage)); // Qt warns of no name
    }
    m_url = url;
    if (url.isEmpty()) {
        return;
    }
    VXImageCache::Instance()->FetchImage(url, this, [this, url](const QImage& image) {
        if (url == m_url) {
            OnFetched(image);
        }
    });
}

QSize ImageLabel::sizeHint() const
{
    return m_boxSize;
}

void ImageLabel::paintEvent(QPaintEvent*)
{
    const QRect box = GetBox();
    if (m_image.isNull() || box.isEmpty()) {
        return;
    }
    QPainter painter(this);
    // The widget's own ratio is its screen's, which may differ from that of the device it is painted on.
    const qreal ratio = painter.paintEngine()->paintDevice()->devicePixelRatioF();
    if (m_drawn.size() != box.size() * ratio || m_drawn.devicePixelRatio() != ratio) {
        m_drawn = Draw(box.size(), ratio);
    }
    painter.drawPixmap(box.topLeft(), m_drawn);
}

void ImageLabel::OnFetched(const QImage& image)
{
    if (!image.isNull()) {
        ShowPicture(image);
    } else if (m_image.isNull() && m_defaultImage.isEmpty()) {
        ShowPicture(QImage(QStringLiteral(":/images/default.png")));
    }
}

void ImageLabel::ShowPicture(const QImage& image)
{
    m_image = image;
    m_drawn = QPixmap();
    update();
}

QRect ImageLabel::GetBox() const
{
    if (m_boxSize.isEmpty()) {
        return rect();
    }
    QRect box(QPoint(), m_boxSize);
    box.moveCenter(rect().center());
    return box;
}

QPixmap ImageLabel::Draw(QSize box, qreal ratio) const
{
    const QSize whole = box * ratio; // [device pixels], as all sizes here
    const QSize size = m_image.size().scaled(whole, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    QImage drawn(whole, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);

    // Round corners are antialiased with a brush, but not with a clip.
    const QRectF picture = Centred(size, whole);
    painter.setBrush(QBrush(m_image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
    painter.setBrushOrigin(picture.topLeft());
    painter.drawRoundedRect(picture, m_xRadius * ratio, m_yRadius * ratio);
    if (m_maskRadius > 0) {
        QImage mask(whole, QImage::Format_ARGB32_Premultiplied);
        mask.fill(Qt::transparent);
        QPainter maskPainter(&mask);
        maskPainter.setRenderHint(QPainter::Antialiasing);
        maskPainter.setPen(Qt::NoPen);
        maskPainter.setBrush(Qt::black);
        maskPainter.drawRoundedRect(mask.rect(), m_maskRadius * ratio, m_maskRadius * ratio);
        maskPainter.end();
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, mask);
    }
    painter.end();
    QPixmap pixmap = QPixmap::fromImage(drawn);
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}
