// SPDX-License-Identifier: MIT
#include "window/lettore/lettore.h"

#include <QFileInfo>
#include <memory>

#include "window/lettore/finestra.h"

namespace morvella::lettore {

Lettore::Lettore(Dialoghi dialoghi, bool lf) : dialoghi_(std::move(dialoghi)), lf_(lf) {
    static const bool unaVolta = [] {
        AccessibilitaDellaVista();
        return true;
    }();
    Q_UNUSED(unaVolta);
}

Lettore::~Lettore() {
    for (const auto& finestra : std::as_const(finestre_)) delete finestra;
}

QList<FinestraLettore*> Lettore::Finestre() const {
    QList<FinestraLettore*> aperte;
    for (const auto& finestra : finestre_)
        if (finestra && finestra->isVisible()) aperte.append(finestra);
    return aperte;
}

FinestraLettore* Lettore::Nuova() {
    auto* finestra = new FinestraLettore(*this);
    finestre_.removeIf([](const QPointer<FinestraLettore>& f) { return !f; });
    finestre_.append(finestra);
    finestra->show();
    return finestra;
}

int Lettore::Apri(const QStringList& file, FinestraLettore* vuota) {
    int mancati = 0;
    for (const QString& uno : file) {
        const QString vero = QFileInfo(uno).canonicalFilePath();
        FinestraLettore* gia = nullptr;
        for (FinestraLettore* f : Finestre())
            if (!vero.isEmpty() && QFileInfo(f->File()).canonicalFilePath() == vero) gia = f;
        if (gia) {
            gia->setWindowState(gia->windowState() & ~Qt::WindowMinimized);
            gia->raise();
            gia->activateWindow();
            continue;
        }
        const bool qui = vuota && vuota->File().isEmpty();
        auto nuova = qui ? nullptr : std::make_unique<FinestraLettore>(*this);
        FinestraLettore* finestra = qui ? vuota : nuova.get();
        QString perche;
        if (!finestra->Apri(uno, perche)) {
            ++mancati;
            dialoghi_.Avvisa(vuota, true, "Morvella Lettore",
                             QStringLiteral("Non si può aprire «%1».\n\n%2").arg(uno, perche));
            continue;
        }
        if (nuova) finestre_.append(nuova.release());
        finestra->show();
    }
    return mancati;
}

void Lettore::ChiudiTutte() {
    for (FinestraLettore* finestra : Finestre()) finestra->close();
}

} // namespace morvella::lettore
