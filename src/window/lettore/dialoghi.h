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
    /// A box with an OK button: an error if `guasto`, else information.
    std::function<void(QWidget* sopra, bool guasto, const QString& titolo, const QString& testo)> Avvisa;
    /// Asks for files to open; an empty list when cancelled.
    std::function<QStringList(QWidget* sopra, const QString& directory)> Scegli;
    /// Asks where to write a PDF; "" when cancelled.
    std::function<QString(QWidget* sopra, const QString& proposto)> ScegliPdf;
};
/// The dialogs that users see.
Dialoghi DialoghiVeri();

} // namespace morvella::lettore
