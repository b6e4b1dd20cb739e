// SPDX-License-Identifier: MIT
//
// The two bars below the listing: one to find a text, one to go to a number.
#include "window/lettore/finestra.h"

#include <algorithm>

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

namespace morvella::lettore {

QWidget* FinestraLettore::FaiBarraTrova() {
    barraTrova_ = new QWidget;
    barraTrova_->setObjectName("barraTrova");
    auto* riga = new QHBoxLayout(barraTrova_);
    riga->setContentsMargins(6, 4, 6, 4);
    auto* nome = new QLabel("Trova:");
    daTrovare_ = new QLineEdit;
    daTrovare_->setObjectName("daTrovare");
    daTrovare_->setAccessibleName("Testo da trovare");
    daTrovare_->setClearButtonEnabled(true);
    daTrovare_->setMaxLength(1000);
    daTrovare_->setMinimumWidth(220);
    nome->setBuddy(daTrovare_);
    esito_ = new QLabel;
    esito_->setObjectName("esito");
    esito_->setAccessibleName("Esito della ricerca");
    auto* prima = new QPushButton("P&recedente");
    auto* dopo = new QPushButton("S&uccessivo");
    auto* chiudi = new QPushButton("C&hiudi");
    prima->setToolTip("Shift+F3");
    dopo->setToolTip("F3");
    chiudi->setToolTip("Esc");
    riga->addWidget(nome);
    riga->addWidget(daTrovare_, 1);
    riga->addWidget(prima);
    riga->addWidget(dopo);
    riga->addWidget(esito_, 1);
    riga->addWidget(chiudi);
    for (QPushButton* bottone : {prima, dopo, chiudi}) {
        bottone->setAutoDefault(false);
        bottone->setAccessibleName(bottone->text().remove('&'));
    }
    connect(prima, &QPushButton::clicked, this, [this] { Cerca(false); });
    connect(dopo, &QPushButton::clicked, this, [this] { Cerca(true); });
    connect(chiudi, &QPushButton::clicked, this, [this] { ChiudiBarra(barraTrova_); });
    connect(daTrovare_, &QLineEdit::textEdited, this, [this] { Cerca(true, true); });
    connect(daTrovare_, &QLineEdit::textChanged, this, [this](const QString& testo) {
        if (testo.isEmpty()) vista_->Evidenzia({});
    });
    daTrovare_->installEventFilter(this);
    barraTrova_->installEventFilter(this);
    barraTrova_->hide();
    return barraTrova_;
}

QWidget* FinestraLettore::FaiBarraNumero() {
    barraNumero_ = new QWidget;
    barraNumero_->setObjectName("barraNumero");
    auto* riga = new QHBoxLayout(barraNumero_);
    riga->setContentsMargins(6, 4, 6, 4);
    auto* nome = new QLabel("Numero di riga:");
    numero_ = new QLineEdit;
    numero_->setObjectName("ilNumero");
    numero_->setAccessibleName("Numero di riga");
    numero_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{1,9}"), numero_));
    numero_->setMaximumWidth(160);
    nome->setBuddy(numero_);
    esitoNumero_ = new QLabel;
    esitoNumero_->setObjectName("esitoNumero");
    esitoNumero_->setAccessibleName("Esito");
    auto* vai = new QPushButton("Vai");
    auto* chiudi = new QPushButton("C&hiudi");
    chiudi->setToolTip("Esc");
    riga->addWidget(nome);
    riga->addWidget(numero_);
    riga->addWidget(vai);
    riga->addWidget(esitoNumero_, 1);
    riga->addWidget(chiudi);
    for (QPushButton* bottone : {vai, chiudi}) {
        bottone->setAutoDefault(false);
        bottone->setAccessibleName(bottone->text().remove('&'));
    }
    connect(vai, &QPushButton::clicked, this, &FinestraLettore::VaiAlNumero);
    connect(chiudi, &QPushButton::clicked, this, [this] { ChiudiBarra(barraNumero_); });
    numero_->installEventFilter(this);
    barraNumero_->installEventFilter(this);
    barraNumero_->hide();
    return barraNumero_;
}

void FinestraLettore::ApriTrova() {
    barraNumero_->hide();
    barraTrova_->show();
    const auto [da, a] = std::minmax({vista_->Cursore(), vista_->Ancora()});
    if (da != a && da.Riga == a.Riga && a.Byte - da.Byte <= daTrovare_->maxLength())
        daTrovare_->setText(vista_->TestoScelto().value_or(QString()));
    inizioRicerca_ = da;
    esito_->clear();
    daTrovare_->setFocus();
    daTrovare_->selectAll();
}

void FinestraLettore::Cerca(bool avanti, bool mentreScrive) {
    if (!struttura_) return;
    const QString testo = daTrovare_->text().normalized(QString::NormalizationForm_C);
    if (testo.isEmpty()) {
        esito_->clear();
        if (!mentreScrive) ApriTrova();
        return;
    }
    const Ago ago(testo.toStdU16String());
    vista_->Evidenzia(ago);
    const auto [inizio, fine] = std::minmax({vista_->Cursore(), vista_->Ancora()});
    Posizione da = inizio;
    if (mentreScrive)
        da = inizioRicerca_;
    else if (avanti && inizio != fine)
        ++da.Byte;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QString detto;
    auto trovato = struttura_->Trova(ago, da, avanti);
    if (!trovato) {
        trovato = struttura_->Trova(ago, avanti ? Posizione{} : Posizione{struttura_->Righe(), 0}, avanti);
        if (trovato) detto = avanti ? "Ricominciato dall'inizio." : "Ricominciato dalla fine.";
    }
    QApplication::restoreOverrideCursor();
    if (trovato)
        vista_->Scegli(*trovato, {trovato->Riga, trovato->Byte + ago.Lunghezza()});
    else
        detto = QStringLiteral("«%1» non trovato.").arg(testo.size() > 40 ? testo.left(40) + u'…' : testo);
    if (!mentreScrive && trovato) inizioRicerca_ = *trovato;
    esito_->setText(detto);
    if (!barraTrova_->isVisible() || detto.isEmpty()) Dici(detto);
}

void FinestraLettore::ApriNumero() {
    barraTrova_->hide();
    barraNumero_->show();
    esitoNumero_->clear();
    numero_->setFocus();
    numero_->selectAll();
}

void FinestraLettore::VaiAlNumero() {
    if (!struttura_ || numero_->text().isEmpty()) return;
    const Lungo chiesto = numero_->text().toInt();
    const auto riga = struttura_->RigaDiNumero(chiesto);
    if (!riga) return esitoNumero_->setText("Questo file non ha righe numerate.");
    const Lungo trovato = Struttura::NumeroDi(struttura_->Riga(*riga));
    vista_->Scegli({*riga, 0}, {*riga, Len(struttura_->Riga(*riga))});
    if (trovato == chiesto) return ChiudiBarra(barraNumero_);
    esitoNumero_->setText(
        chiesto > 999999 ? QStringLiteral("Oltre 999999 le righe non hanno numero.")
        : trovato < chiesto
            ? QStringLiteral("L'ultimo numero è %1.").arg(trovato)
            : QStringLiteral("Il numero %1 non c'è: il seguente è %2.").arg(chiesto).arg(trovato));
}

void FinestraLettore::ChiudiBarra(QWidget* barra) {
    barra->hide();
    if (barra == barraTrova_) vista_->Evidenzia({});
    vista_->setFocus();
}

} // namespace morvella::lettore
