#include "VXSettingManagerFixture.h"

#include "core/TLGlobalData.h"

#include <QtCore/QFile>

VXSettingManagerFixture::VXSettingManagerFixture()
{
    EXPECT_TRUE(m_folder.isValid());
}

VXSettingManagerFixture::~VXSettingManagerFixture()
{
    m_store.Close();
    TLGlobalData::Instance()->ClearUser();
}

QString VXSettingManagerFixture::PathOf(const char* name) const
{
    return m_folder.filePath(QString::fromUtf8(name));
}

QByteArray VXSettingManagerFixture::ReadFile(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void VXSettingManagerFixture::WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::WriteOnly | QFile::Truncate)) << path.toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size());
}

QString VXSettingManagerFixture::Section()
{
    return QStringLiteral("SECTION");
}

QString VXSettingManagerFixture::Field(int n)
{
    return QStringLiteral("FIELD%1").arg(n);
}

QString VXSettingManagerFixture::Value(int n, int size)
{
    const QString unit = QStringLiteral("value %1;").arg(n);
    return unit.repeated(size / unit.size() + 1);
}

void VXSettingManagerFixture::MakeStore(int count, int size)
{
    ASSERT_TRUE(m_store.Open(m_file));
    for (int i = 0; i < count; ++i) {
        m_store.SetGlobalValue(Section(), Field(i), Value(i, size));
    }
    ASSERT_TRUE(m_store.Flush());
    m_store.Close();
}

int VXSettingManagerFixture::CountValues(int count, int size)
{
    int found = 0;
    for (int i = 0; i < count; ++i) {
        const QString value = m_store.GetGlobalValue(Section(), Field(i));
        if (value.isEmpty()) {
            continue;
        }
        EXPECT_EQ(value, Value(i, size)) << i;
        ++found;
    }
    return found;
}
