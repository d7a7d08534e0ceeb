#include "SymbolicIconEngine.h"

#include "look/LookResources.h"

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtGui/QGuiApplication>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtGui/QPixmapCache>

SymbolicIconEngine::SymbolicIconEngine(const QString& name) : m_name(name)
{
    LookResources::Ensure();
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    if (file.open(QIODevice::ReadOnly)) {
        m_svg = file.readAll();
    }
}

void SymbolicIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
    picture.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect, picture);
}

QPixmap SymbolicIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    Q_UNUSED(state)
    const QPalette palette = QGuiApplication::palette();
    const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor color = mode == QIcon::Selected ? palette.color(QPalette::Active, QPalette::HighlightedText)
                                                 : palette.color(group, QPalette::ButtonText);

    const QString key = QStringLiteral("symbolic/%1/%2x%3/%4")
                            .arg(m_name)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(color.rgba(), 8, 16, QLatin1Char('0'));
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) {
        return picture;
    }

    QByteArray svg = m_svg;
    svg.replace("currentColor", color.name(QColor::HexRgb).toLatin1());
    QBuffer buffer(&svg);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(size);
    const QImage image = reader.read();
    picture = image.isNull() ? QPixmap() : QPixmap::fromImage(image);
    if (picture.isNull()) {
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
    }
    QPixmapCache::insert(key, picture);
    return picture;
}

QIconEngine* SymbolicIconEngine::clone() const
{
    return new SymbolicIconEngine(*this);
}
