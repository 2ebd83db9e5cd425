// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The studio speaks the language of the person, its plug-ins' editors too.
#include "studio/window/Translations.h"

#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/graph/MO_Module.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QProcess>

#include <gtest/gtest.h>

namespace {

class Translations : public testing::Test
{
protected:
    ~Translations() override { installTranslations(QLocale::c()); }

    static QString label(const char* keyword, const char* attr)
    {
        const auto module = MO_ModuleFactorySingleton().create(QString::fromLatin1(keyword));
        return module->findAttr(QString::fromLatin1(attr))->label();
    }
};

// What the installed program answers to --help, for a person with these languages.
QString help(const QString& lang, const QString& languages)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    for (const char* const name : {"LC_ALL", "LC_MESSAGES"})
        environment.remove(QString::fromLatin1(name));
    environment.insert(QStringLiteral("LANG"), lang);
    environment.insert(QStringLiteral("LANGUAGE"), languages);
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/quarvel-studio"),
                  {QStringLiteral("--help")});
    return program.waitForFinished(60000) ? QString::fromUtf8(program.readAllStandardOutput()) : QString();
}

const QString kEnglish = QStringLiteral("Volume for flat drawings");
const QString kGerman = QStringLiteral("Volumen für flache Zeichnungen");

TEST_F(Translations, CoverTheWindowTheHostAndThePlugIns)
{
    installTranslations(QLocale(QStringLiteral("de_AT")));
    EXPECT_EQ(QCoreApplication::translate("MainWindow", "&File"), QStringLiteral("&Datei"));
    EXPECT_EQ(QCoreApplication::translate("ExportJob", "1 picture written."), QStringLiteral("1 Bild geschrieben."));
    EXPECT_EQ(QCoreApplication::translate("ExportJob", "%n pictures written.", nullptr, 3),
              QStringLiteral("3 Bilder geschrieben."));
    EXPECT_EQ(label("OBJECT_DEFINITION", "ObjectNumber"), QStringLiteral("Objektnummer"));
    EXPECT_EQ(label("Vallorin", "BlurScale"), QStringLiteral("Faktor für Kanten"));
}

// The texts of a dialog's buttons, labels and tool tips.
QStringList textsOf(const QWidget& dialog)
{
    QStringList texts;
    const auto add = [&texts](const QString& text) {
        if (!text.trimmed().isEmpty())
            texts << text;
    };
    for (const QWidget* const part : dialog.findChildren<QWidget*>()) {
        add(part->toolTip());
        if (const auto* const button = qobject_cast<const QAbstractButton*>(part))
            add(button->text());
        if (const auto* const label = qobject_cast<const QLabel*>(part))
            add(label->text());
    }
    return texts;
}

QStringList textsOfQt()
{
    QStringList texts;
    QMessageBox box;
    box.setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel | QMessageBox::Yes |
                           QMessageBox::No | QMessageBox::Close);
    texts << textsOf(box);
    QFileDialog files;
    files.setOption(QFileDialog::DontUseNativeDialog);
    texts << textsOf(files);
    files.setAcceptMode(QFileDialog::AcceptSave);
    texts << textsOf(files) << QFileIconProvider().type(QFileInfo(QDir::tempPath()));
    QColorDialog colours;
    colours.setOptions(QColorDialog::DontUseNativeDialog | QColorDialog::ShowAlphaChannel);
    return texts << textsOf(colours);
}

TEST_F(Translations, CoverTheDialogsOfQtWhereItsOwnAreNotInstalled)
{
    // Those of two languages are the same words.
    const QStringList same{QStringLiteral("OK"), QStringLiteral("Name:")};
    installTranslations(QLocale(QStringLiteral("en_GB")));
    const QStringList english = textsOfQt();
    installTranslations(QLocale(QStringLiteral("de_DE")));
    const QStringList german = textsOfQt();
    ASSERT_EQ(german.size(), english.size());
    EXPECT_GT(german.size(), 40);
    for (qsizetype i = 0; i < german.size(); ++i)
        EXPECT_TRUE(german[i] != english[i] || same.contains(german[i])) << qPrintable(german[i]);
}

TEST_F(Translations, GoWhenTheLanguageChangesToEnglish)
{
    installTranslations(QLocale(QStringLiteral("de_DE")));
    installTranslations(QLocale(QStringLiteral("en_GB")));
    EXPECT_EQ(QCoreApplication::translate("MainWindow", "&File"), QStringLiteral("&File"));
    EXPECT_EQ(label("Vallorin", "BlurScale"), QStringLiteral("Bevel Multiplier"));
}

TEST_F(Translations, AreThoseOfTheSystem)
{
    EXPECT_TRUE(help(QStringLiteral("de_DE.UTF-8"), {}).contains(kGerman));
    EXPECT_TRUE(help(QStringLiteral("en_US.UTF-8"), {}).contains(kEnglish));
    EXPECT_TRUE(help(QStringLiteral("C"), {}).contains(kEnglish));
}

TEST_F(Translations, LeaveEnglishToWhoRanksItFirst)
{
    EXPECT_TRUE(help(QStringLiteral("en_US.UTF-8"), QStringLiteral("en:de")).contains(kEnglish));
    EXPECT_TRUE(help(QStringLiteral("ja_JP.UTF-8"), QStringLiteral("ja:de:en")).contains(kGerman));
}

} // namespace
