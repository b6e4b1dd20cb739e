// SPDX-License-Identifier: MIT
// window/lettore/italiano.h
//
// Qt's own texts in Italian. Its translation is a package of its own and may be missing or have
// gaps, so the texts that a reader of listings meets are here as well.
#pragma once

class QCoreApplication;

namespace morvella::lettore {

void ParlaItaliano(QCoreApplication& programma);

} // namespace morvella::lettore
