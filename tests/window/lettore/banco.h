// SPDX-License-Identifier: MIT
//
// Listings written by hand, and a directory to keep them in.
#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "shell/state.h"
#include "window/lettore/file.h"

namespace morvella::lettore::prove {

/// The bytes of a listing's line: drawn characters by code page 437, "·" is a blank, all else by
/// Windows-1252.
inline QByteArray G(const QString& scritta) {
    static const QString glifi = QStringLiteral("│║└├─╚╔═┌·");
    static const char bytes[] = "\xB3\xBA\xC0\xC3\xC4\xC8\xC9\xCD\xDA ";
    QByteArray riga;
    for (const QChar c : scritta) {
        const auto quale = glifi.indexOf(c);
        if (quale >= 0)
            riga += bytes[quale];
        else
            riga += QByteArray::fromStdString(*Bytes1252DaUtf8(QString(c).toStdString()));
    }
    return riga;
}

inline const QByteArray Errore11 = QByteArray(11, ' ') + QByteArray::fromStdString(Testo(ErroreGenerico));

/// The five lines of a head's box behind a field of 11 and a margin of 3.
inline QList<QByteArray> Riquadro(const char* numero, const QByteArray& testa) {
    const QByteArray p(14, ' ');
    const QByteArray stelle = p + QByteArray(101, '*');
    const QByteArray vuoto = p + "*" + QByteArray(99, ' ') + "*";
    return {stelle, vuoto, QByteArray(numero) + "     " + p + "  " + testa, vuoto, stelle};
}

/// A procedure without a fault, one left open, and one without a box that was left open too.
///
///    0 box, its head in line 2      12 Next i          20 If a Then b = 1 (open)
///    5 Dim                          13 End Sub         21 error line
///    6 For, 7 If, 8 Exit For        14 empty           22 End Function, 23 comment
///    9 Else, 10 Print, 11 End If    15 box, head in 17  24 Friend Sub, 26 error line, 27 End Sub
inline QList<QByteArray> Esempio() {
    QList<QByteArray> righe = Riquadro("000003", "Private Sub Prova(n As Integer)");
    righe << G("000004     ···Dim i As Integer") << G("000005     ···╔═>For i = 1 To n")
          << G("000006     ···║··┌─>If i = 2 Then") << G("000007     <<═════════Exit For")
          << G("000008     ···║··├─>Else") << G("000009     ···║··│··Print \"Perché\", i")
          << G("000010     ···║··└─>End If") << G("000011     ···╚═>Next i") << G("000012     ···End Sub")
          << G("000013     ");
    righe << Riquadro("000014", "Public Function Somma() As Long");
    righe << G("000015     ···┌─>If a Then b = 1") << Errore11 << G("000016     ······End Function")
          << G("000017     ···' PERCHÉ no") << G("000018     ···Friend Sub Amica()")
          << G("000019     ···┌─>If c Then d") << Errore11 << G("000020     ······End Sub");
    return righe;
}

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

} // namespace morvella::lettore::prove
