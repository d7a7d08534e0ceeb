#pragma once

#include "settings-store/VXSettingManager.h"

#include <QtCore/QByteArray>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

/// A store in a folder of its own, closed at first; at the end nobody is signed in.
class VXSettingManagerFixture : public testing::Test
{
protected:
    VXSettingManagerFixture();
    ~VXSettingManagerFixture() override;

    /// In the test's folder.
    QString PathOf(const char* name) const;
    static QByteArray ReadFile(const QString& path);
    static void WriteFile(const QString& path, const QByteArray& bytes);

    static QString Section();
    /// The n-th of many fields.
    static QString Field(int n);
    /// A value that belongs to that field and is about `size` characters long.
    static QString Value(int n, int size);
    /// Makes a store with `count` global values and closes it.
    void MakeStore(int count, int size);
    /// How many of the values made so are there. One that is there and wrong is a failure of the test.
    int CountValues(int count, int size);

    QTemporaryDir m_folder;
    const QString m_file = PathOf("settings.db");
    VXSettingManager& m_store = *VXSettingManager::Instance();
    QSignalSpy m_setAside{&m_store, &VXSettingManager::SigStoreSetAside};
    QSignalSpy m_valueDamaged{&m_store, &VXSettingManager::SigValueDamaged};
    QSignalSpy m_failed{&m_store, &VXSettingManager::SigStoreFailed};
};
