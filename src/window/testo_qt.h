// SPDX-License-Identifier: MIT
// window/testo_qt.h
//
// The edge between the system's bytes and the widgets' texts.
#pragma once

#include <QString>
#include <QStringDecoder>

#include "text/primitive.h"

namespace morvella {

/// Windows-1252 bytes as a widget shows them.
inline QString Mostra(Vista testo) { return QString::fromStdString(Utf8Da1252(testo)); }

/// A name on the disk as a person reads it: UTF-8, and where it is none, Windows-1252.
inline QString MostraNome(const std::string& nome) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString testo = utf8(QByteArrayView(nome));
    return utf8.hasError() ? Mostra(nome) : testo;
}

/// What a user typed as the system's bytes. A character that Windows-1252 does not have becomes
/// "?", as in any program that keeps its texts in that code page.
inline Testo DaUtente(const QString& testo) {
    if (auto bytes = Bytes1252DaUtf8(testo.toStdString())) return *bytes;
    Testo bytes;
    for (const char32_t c : testo.toUcs4())
        bytes += Bytes1252DaUtf8(QString::fromUcs4(&c, 1).toStdString()).value_or("?");
    return bytes;
}

} // namespace morvella
