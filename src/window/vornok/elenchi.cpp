// SPDX-License-Identifier: MIT
#include "window/vornok/elenchi.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyledItemDelegate>
#include <algorithm>

#include "window/testo_qt.h"

namespace morvella {

namespace {

constexpr int RuoloLivello = Qt::UserRole;
constexpr int PixelLivello = 9; // indentation of a level

// Indents a row's icon and text by its level.
class Rientro : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* penna, const QStyleOptionViewItem& opzione, const QModelIndex& dove) const override {
        QStyleOptionViewItem qui = opzione;
        qui.rect.setLeft(qui.rect.left() + PixelLivello * dove.data(RuoloLivello).toInt());
        QStyledItemDelegate::paint(penna, qui, dove);
    }
    QSize sizeHint(const QStyleOptionViewItem& opzione, const QModelIndex& dove) const override {
        QSize misura = QStyledItemDelegate::sizeHint(opzione, dove);
        return misura + QSize(PixelLivello * dove.data(RuoloLivello).toInt(), 0);
    }
};

// The text of a root: "/", or "C:\" where drives have letters.
QString Radice(const std::string& percorso) {
    QString nome = MostraNome(percorso);
    return nome == "/" ? nome : nome.replace('/', '\\');
}

std::string Sotto(const std::string& directory, const std::string& nome) {
    return directory.ends_with('/') ? directory + nome : directory + '/' + nome;
}

// The platform paths from the root to the open directory.
std::vector<std::string> Catena(const std::string& directory) {
    std::vector<std::string> catena;
    for (std::size_t barra = directory.find('/'); barra != std::string::npos;
         barra = directory.find('/', barra + 1))
        if (barra + 1 < directory.size() || catena.empty())
            catena.push_back(directory.substr(0, catena.empty() ? barra + 1 : barra));
    if (catena.empty() || catena.back() != directory) catena.push_back(directory);
    return catena;
}

// Keys that move to another row.
bool TastoDiMoto(int tasto) {
    switch (tasto) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: return true;
    default: return false;
    }
}

bool Invio(const QKeyEvent& evento) {
    return evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter;
}

} // namespace

// ---- Dir1

ElencoDirectory::ElencoDirectory(QWidget* genitore) : QListWidget(genitore) {
    setItemDelegate(new Rientro(this));
    setUniformItemSizes(false);
    connect(this, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* voce) { emit Scelta(std::string(Percorso(row(voce)))); });
}

void ElencoDirectory::Apri(Disco& disco, const std::string& percorso) {
    if (directory_ != percorso) {
        directory_ = percorso;
        modificata_.reset();
    }
    Rileggi(disco);
}

void ElencoDirectory::Rileggi(Disco& disco, bool comunque) {
    const Scheda adesso = disco.Esamina(directory_);
    if (!comunque && modificata_ && adesso.Esiste() && *modificata_ == adesso.Modificato) return;
    modificata_ = adesso.Modificato;

    const bool stessa = aperta_ >= 0 && percorsi_[static_cast<std::size_t>(aperta_)] == directory_;
    const std::string marcata = stessa && currentRow() >= 0 ? Percorso(currentRow()) : directory_;
    const int scorsa = verticalScrollBar()->value();
    Riempi(disco);
    const auto dove = std::find(percorsi_.begin(), percorsi_.end(), marcata);
    setCurrentRow(dove == percorsi_.end() ? aperta_ : static_cast<int>(dove - percorsi_.begin()));
    if (stessa)
        verticalScrollBar()->setValue(scorsa);
    else
        scrollToItem(item(aperta_));
}

void ElencoDirectory::Riempi(Disco& disco) {
    clear();
    percorsi_.clear();
    const QIcon aperta = style()->standardIcon(QStyle::SP_DirOpenIcon, nullptr, this);
    const QIcon chiusa = style()->standardIcon(QStyle::SP_DirClosedIcon, nullptr, this);
    const auto aggiungi = [&](const QIcon& icona, const QString& nome, int livello,
                              const std::string& percorso) {
        auto* voce = new QListWidgetItem(icona, nome, this);
        voce->setData(RuoloLivello, livello);
        percorsi_.push_back(percorso);
    };

    int livello = 0;
    for (const std::string& sopra : Catena(directory_)) {
        const std::size_t barra = sopra.find_last_of('/');
        const bool radice = barra + 1 == sopra.size();
        aggiungi(aperta, radice ? Radice(sopra) : MostraNome(sopra.substr(barra + 1)), livello++, sopra);
    }
    aperta_ = static_cast<int>(percorsi_.size()) - 1;

    // A directory that cannot be read is shown without any below it.
    std::vector<std::pair<Testo, std::string>> dentro; // folded text, name
    try {
        for (std::string& nome : disco.Elenca(directory_)) {
            if (nome.starts_with('.')) continue; // hidden, by convention
            const Scheda scheda = disco.Esamina(Sotto(directory_, nome));
            if (scheda.Tipo != TipoVoce::Directory || scheda.Nascosto) continue;
            dentro.emplace_back(LCase(Archivio::TestoDiPercorso(nome)), std::move(nome));
        }
    } catch (const Errore&) {
        dentro.clear();
    }
    std::sort(dentro.begin(), dentro.end());
    for (const auto& [chiave, nome] : dentro)
        aggiungi(chiusa, MostraNome(nome), livello, Sotto(directory_, nome));
}

void ElencoDirectory::keyPressEvent(QKeyEvent* evento) {
    if (Invio(*evento) && currentRow() >= 0) {
        emit Scelta(std::string(Percorso(currentRow())));
        return;
    }
    if (evento->key() == Qt::Key_Backspace) {
        if (aperta_ > 0) emit Scelta(std::string(Percorso(aperta_ - 1)));
        return;
    }
    QListWidget::keyPressEvent(evento);
}

// ---- File1Leggi

ElencoProgetti::ElencoProgetti(QWidget* genitore) : QListWidget(genitore) {}

void ElencoProgetti::Mostra(const ListaFile1Leggi& lista, const Archivio& file) {
    if (nomi_ != lista.Nomi) {
        nomi_ = lista.Nomi;
        clear();
        for (const Testo& nome : nomi_) addItem(QString::fromStdString(file.Utf8DiTesto(nome)));
    }
    scelta_ = static_cast<int>(lista.ListIndex);
    MarcaScelta();
}

void ElencoProgetti::MarcaScelta() {
    if (scelta_ < 0) {
        setCurrentRow(-1); // else an arrow key would start from there
        clearSelection();
    } else if (scelta_ != currentRow() || selectedItems().isEmpty()) {
        setCurrentRow(scelta_, QItemSelectionModel::ClearAndSelect);
    }
}

// A key chooses when it moves the mark to another row.
template <class F>
void ElencoProgetti::ConTasto(F&& muovi) {
    const int prima = selectedItems().isEmpty() ? -1 : currentRow();
    muovi();
    const int dopo = selectedItems().isEmpty() ? -1 : currentRow();
    if (dopo >= 0 && dopo != prima) emit Cliccata(dopo);
}

void ElencoProgetti::keyPressEvent(QKeyEvent* evento) {
    if (Invio(*evento)) {
        if (currentRow() >= 0) emit Cliccata(currentRow());
        return;
    }
    ConTasto([&] {
        // With nothing chosen yet, an arrow goes to the first row. Qt would start from there and go to
        // the second.
        if (selectedItems().isEmpty() && count() > 0 && TastoDiMoto(evento->key()) &&
            evento->key() != Qt::Key_End)
            setCurrentRow(0, QItemSelectionModel::ClearAndSelect);
        else
            QListWidget::keyPressEvent(evento);
    });
}

// Only the left button chooses, so no other may mark.
void ElencoProgetti::mousePressEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton) QListWidget::mousePressEvent(evento);
}

void ElencoProgetti::mouseReleaseEvent(QMouseEvent* evento) {
    QListWidget::mouseReleaseEvent(evento);
    if (evento->button() != Qt::LeftButton) return;
    // The press has marked its row, and the mark has followed the mouse. A click that ends beside
    // the rows is none, and the mark goes back.
    const QModelIndex dove = indexAt(evento->pos());
    if (viewport()->rect().contains(evento->pos()) && dove.isValid() && dove.row() == currentRow())
        emit Cliccata(dove.row());
    else
        MarcaScelta();
}

// ---- File1

int RigheFile1::rowCount(const QModelIndex& sopra) const { return sopra.isValid() ? 0 : righe_; }

QVariant RigheFile1::data(const QModelIndex& dove, int ruolo) const {
    if (!dove.isValid() || (ruolo != Qt::DisplayRole && ruolo != Qt::ToolTipRole)) return {};
    return dove.row() < s_.File1.ListCount() ? QVariant(Mostra(s_.File1.List(dove.row()))) : QVariant();
}

void RigheFile1::Rinnova() {
    if (versione_ == s_.File1.Versione()) return;
    beginResetModel();
    versione_ = s_.File1.Versione();
    righe_ = static_cast<int>(s_.File1.ListCount());
    endResetModel();
}

ElencoFile1::ElencoFile1(const Stato& s, QWidget* genitore)
    : QListView(genitore), s_(s), righe_(new RigheFile1(s, this)) {
    setModel(righe_);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformItemSizes(true);
    // A click on a selected row changes nothing, but is a click all the same.
    connect(this, &QListView::clicked, this, [this](const QModelIndex& dove) {
        emit Cliccata({{dove.row(), selectionModel()->isSelected(dove)}});
    });
}

void ElencoFile1::Mostra() {
    sincronizza_ = true;
    righe_->Rinnova();
    QItemSelection scelta;
    const int righe = righe_->rowCount();
    for (int i = 0; i < righe;) {
        if (!s_.File1.Selected(i)) {
            ++i;
            continue;
        }
        const int prima = i;
        while (i < righe && s_.File1.Selected(i)) ++i;
        scelta.append(QItemSelectionRange(righe_->index(prima), righe_->index(i - 1)));
    }
    if (selectionModel()->selection() != scelta)
        selectionModel()->select(scelta, QItemSelectionModel::ClearAndSelect);
    sincronizza_ = false;
}

void ElencoFile1::selectionChanged(const QItemSelection& si, const QItemSelection& no) {
    QListView::selectionChanged(si, no);
    if (sincronizza_) return;
    std::vector<std::pair<int, bool>> cambiate;
    for (const QItemSelectionRange& tratto : si)
        for (int i = tratto.top(); i <= tratto.bottom(); ++i) cambiate.emplace_back(i, true);
    for (const QItemSelectionRange& tratto : no)
        for (int i = tratto.top(); i <= tratto.bottom(); ++i) cambiate.emplace_back(i, false);
    if (!cambiate.empty()) emit Cliccata(cambiate);
}

} // namespace morvella
