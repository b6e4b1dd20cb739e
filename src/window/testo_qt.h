// SPDX-License-Identifier: MIT
// window/testo_qt.h
//
// Converts between the system's bytes and the widgets' texts.
#pragma once

#include <QString>
#include <QStringDecoder>

#include "text/primitive.h"

namespace morvella {

/// The text that a widget shows for Windows-1252 bytes.
inline QString Mostra(Vista testo) { return QString::fromStdString(Utf8Da1252(testo)); }

/// The text that is shown for a file name: read as UTF-8, or as Windows-1252 if it is not valid.
inline QString MostraNome(const std::string& nome) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString testo = utf8(QByteArrayView(nome));
    return utf8.hasError() ? Mostra(nome) : testo;
}

/// The system's bytes for what a user typed. A character that Windows-1252 lacks becomes "?", as in
/// any program that keeps its texts in that code page.
inline Testo DaUtente(const QString& testo) {
    if (auto bytes = Bytes1252DaUtf8(testo.toStdString())) return *bytes;
    Testo bytes;
    for (const char32_t c : testo.toUcs4())
        bytes += Bytes1252DaUtf8(QString::fromUcs4(&c, 1).toStdString()).value_or("?");
    return bytes;
}

} // namespace morvella
