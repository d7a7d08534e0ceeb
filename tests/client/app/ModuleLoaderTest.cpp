#include "app/ModuleLoader.h"
#include "app/LifeCycleDriver.h"

#include "frame-core/IBusinessModule.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

class ModuleLoaderTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        qputenv("TL_FIXTURE_LOG", QFile::encodeName(m_log));
    }
    void TearDown() override { qunsetenv("TL_FIXTURE_LOG"); }

    /// The module's file, copied into the test's own folder under another name.
    void Copy(const char* module, const char* name)
    {
        const QDir source(QStringLiteral(TL_FIXTURE_MODULE_DIR "/") + QLatin1String(module));
        const QStringList files = source.entryList(
            {QStringLiteral("*") + QLatin1String(module) + QStringLiteral("*")}, QDir::Files);
        ASSERT_EQ(files.size(), 1) << module;
        ASSERT_TRUE(QFile::copy(source.filePath(files[0]), Path(name)));
    }
    QString Path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    void Write(const char* name, const QByteArray& content)
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void Load() { m_loader.Load({m_folder.path()}); }
    QStringList Log() const
    {
        QFile file(m_log);
        return file.open(QIODevice::ReadOnly)
                   ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)
                   : QStringList();
    }
    std::string Reason(int index = 0) const
    {
        return index < m_refused.count() ? m_refused.at(index).at(1).toString().toStdString() : "none";
    }

    QTemporaryDir m_folder;
    QString m_log = m_folder.filePath(QStringLiteral("log.txt"));
    ModuleLoader m_loader;
    QSignalSpy m_loaded{&m_loader, &ModuleLoader::SigLoaded};
    QSignalSpy m_refused{&m_loader, &ModuleLoader::SigRefused};
};

TEST_F(ModuleLoaderTest, GoodModuleIsLoadedAndSetUp)
{
    Copy("GoodModule", "libgood.so");
    Load();
    ASSERT_EQ(m_loaded.count(), 1);
    EXPECT_EQ(m_loaded.at(0).at(0).toString(), Path("libgood.so"));
    EXPECT_EQ(m_loaded.at(0).at(1).toString(), QStringLiteral("GoodModule"));
    ASSERT_EQ(m_loader.GetModules().size(), 1U);
    EXPECT_NE(m_loader.GetModules()[0].module->GetLifeCycle(), nullptr);
    EXPECT_EQ(Log(), QStringList{QStringLiteral("InitModule")});
}

TEST_F(ModuleLoaderTest, UnloadingUninitsBeforeTheObjectGoes)
{
    Copy("GoodModule", "libgood.so");
    Load();
    m_loader.Unload();
    const QStringList expected{QStringLiteral("InitModule"), QStringLiteral("UninitModule"),
                               QStringLiteral("Destroy")};
    EXPECT_EQ(Log(), expected);
    EXPECT_TRUE(m_loader.GetModules().empty());
    m_loader.Unload();
    EXPECT_EQ(Log(), expected);
}

TEST_F(ModuleLoaderTest, OtherMajorVersionIsRefusedNamingBothAndNoneOfItsCodeRuns)
{
    Copy("WrongVersionModule", "libmodule.so");
    Load();
    EXPECT_EQ(m_loaded.count(), 0);
    EXPECT_NE(Reason().find("9.0.0.0"), std::string::npos) << Reason();
    EXPECT_NE(Reason().find("8.7.0.0"), std::string::npos) << Reason();
    EXPECT_TRUE(Log().isEmpty());
}

TEST_F(ModuleLoaderTest, PlugInOfAnotherKindIsRefusedNamingItsInterface)
{
    Copy("WrongIdModule", "libmodule.so");
    Load();
    EXPECT_EQ(m_loaded.count(), 0);
    EXPECT_NE(Reason().find("com.kelvorant.localhost.IOtherModule/8.7.0.0"), std::string::npos) << Reason();
    EXPECT_TRUE(Log().isEmpty());
}

TEST_F(ModuleLoaderTest, RootObjectWithoutTheInterfaceIsRefused)
{
    Copy("NoInterfaceModule", "libmodule.so");
    Load();
    EXPECT_EQ(m_loaded.count(), 0);
    EXPECT_NE(Reason().find("does not offer the module interface"), std::string::npos) << Reason();
}

TEST_F(ModuleLoaderTest, DamagedFilesAreRefused)
{
    Copy("DamagedModule", "liba.so");
    Write("libb.so", "no library at all");
    Write("libc.so", "");
    Load();
    EXPECT_EQ(m_loaded.count(), 0);
    ASSERT_EQ(m_refused.count(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Reason(i).rfind("The file is damaged or no plug-in: ", 0), 0U) << Reason(i);
    }
}

TEST_F(ModuleLoaderTest, SecondModuleWithTheSameKeyIsRefusedNamingTheFirst)
{
    Copy("GoodModule", "liba.so");
    Copy("GoodModule", "libb.so");
    Load();
    ASSERT_EQ(m_loaded.count(), 1);
    EXPECT_EQ(m_loaded.at(0).at(0).toString(), Path("liba.so"));
    EXPECT_NE(Reason().find("GoodModule"), std::string::npos) << Reason();
    EXPECT_NE(Reason().find("liba.so"), std::string::npos) << Reason();
}

TEST_F(ModuleLoaderTest, FilesAreTakenInTheOrderOfTheirNamesAndAfterABadOneTheRestLoads)
{
    Copy("SlowToStopModule", "libc.so");
    Copy("DamagedModule", "libb.so");
    Copy("GoodModule", "liba.so");
    Load();
    ASSERT_EQ(m_loaded.count(), 2);
    EXPECT_EQ(m_loaded.at(0).at(1).toString(), QStringLiteral("GoodModule"));
    EXPECT_EQ(m_loaded.at(1).at(1).toString(), QStringLiteral("SlowToStopModule"));
    EXPECT_EQ(m_refused.count(), 1);
}

TEST_F(ModuleLoaderTest, SlowModuleIsWaitedFor)
{
    Copy("SlowToStopModule", "libslow.so");
    Load();
    m_loader.Unload();
    EXPECT_EQ(Log().last(), QStringLiteral("UninitModule"));
}

TEST_F(ModuleLoaderTest, OtherFilesAndMissingFoldersArePassedOver)
{
    Write("readme.txt", "about these modules");
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("folder.so")));
    m_loader.Load({Path("none"), m_folder.path()});
    EXPECT_EQ(m_loaded.count(), 0);
    EXPECT_EQ(m_refused.count(), 0);
}

TEST_F(ModuleLoaderTest, WholeLifeOfARealModuleIsInOrder)
{
    Copy("GoodModule", "libgood.so");
    Load();
    LifeCycleDriver driver;
    driver.SetModules(m_loader.GetModules());
    driver.StartApp();
    driver.BeforeLoginConstruct();
    driver.LoginSuccess();
    driver.GetUserInfoSuccess();
    driver.MainFrameCreate();
    driver.MainFrameShow();
    EXPECT_TRUE(driver.MayClose());
    driver.LogOut();
    driver.MainFrameQuit();
    driver.BeforeMainFrameDestruct();
    driver.ExitApp();
    m_loader.Unload();
    const QStringList expected{QStringLiteral("InitModule"),
                               QStringLiteral("StartApp"),
                               QStringLiteral("BeforeLoginConstruct"),
                               QStringLiteral("LoginSuccess"),
                               QStringLiteral("GetUserInfoSuccess"),
                               QStringLiteral("MainFrameCreate"),
                               QStringLiteral("MainFrameShow"),
                               QStringLiteral("BeforeClose"),
                               QStringLiteral("LogOut"),
                               QStringLiteral("MainFrameQuit"),
                               QStringLiteral("BeforeMainFrameDestruct"),
                               QStringLiteral("ExitApp"),
                               QStringLiteral("UninitModule"),
                               QStringLiteral("Destroy")};
    EXPECT_EQ(Log(), expected);
}
