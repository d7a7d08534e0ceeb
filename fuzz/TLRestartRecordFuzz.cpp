#include "FuzzTarget.h"

#include "TLRestartRecord.h"

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QtEndian>

namespace {

void RequireSameAgain(const TLRestartRecord& record)
{
    const TLRestartRecord again = TLRestartRecord::FromText(record.ToText());
    Require(again.routerUrls == record.routerUrls && again.belongType == record.belongType,
            "what was read can be written and read again");
}

void RequireAsTheStreamReads(const TLRestartRecord& record, const QByteArray& bytes)
{
    // QDataStream reserves memory for as many elements as the count promises.
    constexpr quint32 mostUrls = 100000;
    if (bytes.size() < 4 || qFromBigEndian<quint32>(bytes.constData()) > mostUrls) {
        return;
    }
    QDataStream stream(bytes);
    QStringList urls;
    QString belongType;
    stream >> urls;
    if (stream.status() == QDataStream::Ok) {
        stream >> belongType;
    }
    Require(record.routerUrls == urls && record.belongType == belongType, "the stream reads the same");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    RequireSameAgain(TLRestartRecord::FromText(QString::fromUtf8(bytes)));

    const TLRestartRecord record = TLRestartRecord::FromText(QString::fromLatin1(bytes.toBase64()));
    RequireSameAgain(record);
    RequireAsTheStreamReads(record, bytes);
    return 0;
}
