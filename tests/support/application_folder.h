// An application folder of a test's own, with a language or without.
#pragma once

#include "support/scripted_host.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>
#include <QTest>

class ApplicationFolder {
public:
    explicit ApplicationFolder(ScriptedHost &owner)
    {
        owner.Application = m_folder.path() + QLatin1Char('/');
    }

    QString Path(const QString &name) const { return m_folder.filePath(name); }

    void Write(const QString &name, const QByteArray &content) const
    {
        QDir().mkpath(QFileInfo(Path(name)).path());
        QFile file(Path(name));
        QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(name));
        QCOMPARE(file.write(content), qint64(content.size()));
    }
    // The files of one of the program's own folders.
    void Copy(const QString &folder) const
    {
        const QDir from(QStringLiteral(APPLICATION_DIR "/") + folder);
        QVERIFY(QDir().mkpath(Path(folder)));
        for (const QString &name : from.entryList(QDir::Files))
            QVERIFY(QFile::copy(from.filePath(name), Path(folder + QLatin1Char('/') + name)));
    }
    void Remove(const QString &name) const { QVERIFY(QFile::remove(Path(name))); }

    // Makes `content` the current language.
    void WriteLanguage(const QByteArray &content) const
    {
        Write(QStringLiteral("lngmorlene/LangSetting.ini"),
              "[Language]\r\nCurrentLanguage=prova\r\n");
        Write(QStringLiteral("lngmorlene/prova.lng"), content);
    }

private:
    QTemporaryDir m_folder;
};
