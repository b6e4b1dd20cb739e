// SPDX-License-Identifier: MIT
// tests/window/lettore/banco.h
//
// The listings written by hand as the windows' tests need them, and a directory to keep them in.
#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "lettore/banco.h"

namespace morvella::lettore::provefinestra {

/// Milliseconds after which a test that waits for something gives up. Only a test that hangs
/// reaches it, however busy the machine is.
inline constexpr int Attesa = 60'000;

inline QByteArray G(const QString& scritta) {
    return QByteArray::fromStdString(prove::G(scritta.toStdString()));
}

inline const QByteArray Errore11 = QByteArray::fromStdString(prove::Errore11);

inline QList<QByteArray> Lista(const std::vector<std::string>& righe) {
    QList<QByteArray> lista;
    for (const std::string& riga : righe) lista << QByteArray::fromStdString(riga);
    return lista;
}
inline QList<QByteArray> Riquadro(const char* numero, const QByteArray& testa) {
    return Lista(prove::Riquadro(numero, testa.toStdString()));
}
inline QList<QByteArray> Esempio() { return Lista(prove::Esempio()); }

inline QByteArray Unite(const QList<QByteArray>& righe, const QByteArray& fine = "\r\n") {
    QByteArray tutte;
    for (const QByteArray& riga : righe) tutte += riga + fine;
    return tutte;
}

class Cartella {
  public:
    QString Percorso(const QString& nome) const { return cartella_.filePath(nome); }
    QString Scrivi(const QString& nome, const QByteArray& bytes) const {
        QFile file(Percorso(nome));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("no room for a test");
        return file.fileName();
    }

  private:
    QTemporaryDir cartella_;
};

inline std::filesystem::path Di(const QString& percorso) { return percorso.toStdU16String(); }

} // namespace morvella::lettore::provefinestra
