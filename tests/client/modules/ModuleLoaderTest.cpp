#include "modules/ModuleLoader.h"
#include "modules/LifeCycleDriver.h"

#include "frame-core/IBusinessModule.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

/// The file name of a library on this system.
#ifdef Q_OS_WIN
#define LIBRARY(name) name ".dll"
#else
#define LIBRARY(name) "lib" name ".so"
#endif

class ModuleLoaderTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        qputenv("TL_FIXTURE_LOG", QFile::encodeName(m_log));
    }
    void TearDown() override { qunsetenv("TL_FIXTURE_LOG"); }

    /// Copies the module's file into the test's own folder under another name.
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
    Copy("GoodModule", LIBRARY("good"));
    Load();
    ASSERT_EQ(m_loaded.count(), 1);
    EXPECT_EQ(m_loaded.at(0).at(0).toString(), Path(LIBRARY("good")));
    EXPECT_EQ(m_loaded.at(0).at(1).toString(), QStringLiteral("GoodModule"));
    ASSERT_EQ(m_loader.GetModules().size(), 1U);
    EXPECT_NE(m_loader.GetModules()[0].module->GetLifeCycle(), nullptr);
    EXPECT_EQ(Log(), QStringList{QStringLiteral("InitModule")});
}

TEST_F(ModuleLoaderTest, UnloadingCallsUninitBeforeItDestroysTheObject)
{
    Copy("GoodModule", LIBRARY("good"));
    Load();
    m_loader.Unload();
    const QStringList expected{QStringLiteral("InitModule"), QStringLiteral("UninitModule"),
                               QStringLiteral("Destroy")};
    EXPECT_EQ(Log(), expected);
    EXPECT_TRUE(m_loader.GetModules().empty());
    m_loader.Unload();
    EXPECT_EQ(Log(), expected);
}

TEST_F(ModuleLoaderTest, OtherMajorVersionIsRefusedBeforeItsCodeRuns)
{
    Copy("WrongVersionModule", LIBRARY("module"));
    Load();
    EXPECT_EQ(m_loaded.count(), 0);
    EXPECT_NE(Reason().find("9.0.0.0"), std::string::npos) << Reason();
    EXPECT_NE(Reason().find("8.7.0.0"), std::string::npos) << Reason();
    EXPECT_TRUE(Log().isEmpty());
}

TEST_F(ModuleLoaderTest, PlugInOfAnotherKindIsRefusedNamingItsInterface)
{
    Copy("WrongIdModule", LIBRARY("module"));
    Load();
    EXPECT_EQ(m_loaded.count(), 0);
    EXPECT_NE(Reason().find("com.kelvorant.localhost.IOtherModule/8.7.0.0"), std::string::npos) << Reason();
    EXPECT_TRUE(Log().isEmpty());
}

TEST_F(ModuleLoaderTest, RootObjectWithoutTheInterfaceIsRefused)
{
    Copy("NoInterfaceModule", LIBRARY("module"));
    Load();
    EXPECT_EQ(m_loaded.count(), 0);
    EXPECT_NE(Reason().find("does not offer the module interface"), std::string::npos) << Reason();
}

TEST_F(ModuleLoaderTest, DamagedFilesAreRefused)
{
    Copy("DamagedModule", LIBRARY("a"));
    Write(LIBRARY("b"), "no library at all");
    Write(LIBRARY("c"), "");
    Load();
    EXPECT_EQ(m_loaded.count(), 0);
    ASSERT_EQ(m_refused.count(), 3);
    // Half a DLL may still hold its metadata; then the system finds the damage.
#ifdef Q_OS_WIN
    EXPECT_EQ(Reason(0).rfind("The file cannot be loaded: ", 0), 0U) << Reason(0);
#else
    EXPECT_EQ(Reason(0).rfind("The file is damaged or not a plug-in: ", 0), 0U) << Reason(0);
#endif
    EXPECT_EQ(Reason(1).rfind("The file is damaged or not a plug-in: ", 0), 0U) << Reason(1);
    EXPECT_EQ(Reason(2).rfind("The file is damaged or not a plug-in: ", 0), 0U) << Reason(2);
}

TEST_F(ModuleLoaderTest, SecondModuleWithTheSameKeyIsRefusedNamingTheFirst)
{
    Copy("GoodModule", LIBRARY("a"));
    Copy("GoodModule", LIBRARY("b"));
    Load();
    ASSERT_EQ(m_loaded.count(), 1);
    EXPECT_EQ(m_loaded.at(0).at(0).toString(), Path(LIBRARY("a")));
    EXPECT_NE(Reason().find("GoodModule"), std::string::npos) << Reason();
    EXPECT_NE(Reason().find(LIBRARY("a")), std::string::npos) << Reason();
}

TEST_F(ModuleLoaderTest, FilesLoadInTheOrderOfTheirNames)
{
    Copy("SlowToStopModule", LIBRARY("b"));
    Copy("GoodModule", LIBRARY("a"));
    Load();
    ASSERT_EQ(m_loaded.count(), 2);
    EXPECT_EQ(m_loaded.at(0).at(1).toString(), QStringLiteral("GoodModule"));
    EXPECT_EQ(m_loaded.at(1).at(1).toString(), QStringLiteral("SlowToStopModule"));
}

TEST_F(ModuleLoaderTest, RestLoadsAfterADamagedFile)
{
    Copy("DamagedModule", LIBRARY("a"));
    Copy("GoodModule", LIBRARY("b"));
    Load();
    EXPECT_EQ(m_refused.count(), 1);
    ASSERT_EQ(m_loaded.count(), 1);
    EXPECT_EQ(m_loaded.at(0).at(0).toString(), Path(LIBRARY("b")));
}

TEST_F(ModuleLoaderTest, SlowModuleIsWaitedFor)
{
    Copy("SlowToStopModule", LIBRARY("slow"));
    Load();
    m_loader.Unload();
    EXPECT_EQ(Log().last(), QStringLiteral("UninitModule"));
}

TEST_F(ModuleLoaderTest, OtherFilesAndMissingFoldersAreSkipped)
{
    Write("readme.txt", "about these modules");
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral(LIBRARY("folder"))));
    m_loader.Load({Path("none"), m_folder.path()});
    EXPECT_EQ(m_loaded.count(), 0);
    EXPECT_EQ(m_refused.count(), 0);
}

TEST_F(ModuleLoaderTest, WholeLifeOfARealModuleIsInOrder)
{
    Copy("GoodModule", LIBRARY("good"));
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
