// SPDX-License-Identifier: MIT
// window/lettore/dialoghi.h
//
// The boxes and file dialogs of the reader, behind one struct, so that a test can answer them.
#pragma once

#include <functional>

#include <QStringList>

class QWidget;

namespace morvella::lettore {

struct Dialoghi {
    /// A box with an OK: what went wrong, or what the user asked to be told.
    std::function<void(QWidget* sopra, bool guasto, const QString& titolo, const QString& testo)> Avvisa;
    /// The files to open, none when the user thinks better of it.
    std::function<QStringList(QWidget* sopra, const QString& directory)> Scegli;
    /// Where to write a PDF, "" for nowhere.
    std::function<QString(QWidget* sopra, const QString& proposto)> ScegliPdf;
};
/// The real ones.
Dialoghi DialoghiVeri();

} // namespace morvella::lettore
