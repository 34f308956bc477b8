// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <unistd.h>

namespace flitmark {

/// Writes `bytes` to `path`, creating the folders above it; fails the test when it can't.
inline void writeTestFile(const QString& path, const QByteArray& bytes)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// The content of the file at `path`; empty when there is none.
inline QByteArray readTestFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Makes `path` a link to `target`, which is stored as it is and need not exist.
inline void makeTestLink(const QString& target, const QString& path)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QCOMPARE(::symlink(QFile::encodeName(target).constData(), QFile::encodeName(path).constData()), 0);
}

} // namespace flitmark
