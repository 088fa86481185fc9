// Whole files read and written by the tests of the options, the guides and the list window.
#pragma once
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace krt::prova {

inline QByteArray LeggiFile(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Creates the folders on the way; returns the path for the caller's convenience.
inline QString ScriviFile(const QString& percorso, const QByteArray& dati) {
    EXPECT_TRUE(QDir().mkpath(QFileInfo(percorso).absolutePath()));
    QFile file(percorso);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(dati) == dati.size())
        << percorso.toStdString();
    return percorso;
}

}  // namespace krt::prova
