// SPDX-License-Identifier: MIT
// window/lettore_italiano.h
//
// Qt's own texts in Italian. Its translation is not everywhere (Debian 12 has none), so the
// texts that a reader of listings meets are here as well.
#pragma once

class QCoreApplication;

namespace morvella::lettore {

void ParlaItaliano(QCoreApplication& programma);

} // namespace morvella::lettore
