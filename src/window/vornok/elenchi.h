// SPDX-License-Identifier: MIT
// window/vornok/elenchi.h
//
// The lists of the form: directories, project files, rows of File1. They show what they are
// given and say what the user did; what follows is the form's business.
#pragma once

#include <QListView>
#include <QListWidget>
#include <optional>
#include <string>
#include <vector>

#include "shell/state.h"

namespace morvella {

/// The directory list: the directories above the open one, that one, and those in it. A click
/// marks a row; a double click or Enter opens it. Backspace goes one up.
class ElencoDirectory : public QListWidget {
    Q_OBJECT
  public:
    explicit ElencoDirectory(QWidget* genitore);

    /// Shows the directory with this platform path, as the disk has it now.
    void Apri(Disco& disco, const std::string& percorso);
    /// Reads the open directory again where the disk says that it changed; the marked row and
    /// the place stay. With `comunque` it does not ask: two changes can share a moment.
    void Rileggi(Disco& disco, bool comunque = false);

    /// A row's platform path.
    const std::string& Percorso(int riga) const { return percorsi_[static_cast<std::size_t>(riga)]; }
    int RigaAperta() const { return aperta_; }

  signals:
    void Scelta(const std::string& percorso);

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    void Riempi(Disco& disco);

    std::string directory_;
    std::optional<std::int64_t> modificata_;
    std::vector<std::string> percorsi_;
    int aperta_ = -1;
};

/// The list of project files. A row that the mouse clicks on, or that a key goes to, is chosen;
/// Enter chooses the marked one once more.
class ElencoProgetti : public QListWidget {
    Q_OBJECT
  public:
    explicit ElencoProgetti(QWidget* genitore);
    /// `file` knows the names that the texts stand for.
    void Mostra(const ListaFile1Leggi& lista, const Archivio& file);

  signals:
    void Cliccata(int riga);

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;

  private:
    template <class F>
    void ConTasto(F&& muovi);
    void MarcaScelta();

    std::vector<Testo> nomi_;
    int scelta_ = -1; // the chosen row
};

/// The rows of File1.
class RigheFile1 : public QAbstractListModel {
    Q_OBJECT
  public:
    RigheFile1(const Stato& s, QObject* genitore) : QAbstractListModel(genitore), s_(s) {}
    int rowCount(const QModelIndex& sopra = {}) const override;
    QVariant data(const QModelIndex& dove, int ruolo) const override;
    /// Tells the views when the rows are others than they saw.
    void Rinnova();

  private:
    const Stato& s_;
    Lungo versione_ = -1;
    int righe_ = 0;
};

class ElencoFile1 : public QListView {
    Q_OBJECT
  public:
    ElencoFile1(const Stato& s, QWidget* genitore);
    /// Rows and selection as the state has them.
    void Mostra();

  signals:
    /// The user selected a row, or clicked on a selected one once more.
    void Cliccata(const std::vector<std::pair<int, bool>>& cambiate);

  protected:
    void selectionChanged(const QItemSelection& si, const QItemSelection& no) override;

  private:
    const Stato& s_;
    RigheFile1* righe_;
    bool sincronizza_ = false;
};

} // namespace morvella
