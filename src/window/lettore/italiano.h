// SPDX-License-Identifier: MIT
// window/lettore/italiano.h
//
// Qt's own texts in Italian. Qt's translation is a separate package that may be missing or
// incomplete, so the texts that a user of the reader sees are here as well.
#pragma once

class QCoreApplication;

namespace morvella::lettore {

void ParlaItaliano(QCoreApplication& programma);

} // namespace morvella::lettore
