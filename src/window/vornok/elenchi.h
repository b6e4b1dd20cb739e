// SPDX-License-Identifier: MIT
// window/vornok/elenchi.h
//
// The lists of the form: directories, project files, rows of File1. They show what they are given
// and signal what the user does; the form does the rest.
#pragma once

#include <QListView>
#include <QListWidget>
#include <optional>
#include <string>
#include <vector>

#include "shell/state.h"

namespace morvella {

/// The directory list: the open directory, those above and those in it. A click marks a row, a
/// double click or Enter opens it, Backspace opens the parent.
class ElencoDirectory : public QListWidget {
    Q_OBJECT
  public:
    explicit ElencoDirectory(QWidget* genitore);

    /// Shows the directory with this platform path as it is on the disk now.
    void Apri(Disco& disco, const std::string& percorso);
    /// Reads the open directory again if its time has changed; the marked row and the scroll
    /// position stay. With `comunque` reads it in any case, since two changes can have the same time.
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

/// The list of project files. A row is chosen by a click or by a key that moves to it; Enter
/// chooses the marked row once more. The marked row is the chosen one, but for the time that the
/// mouse button is down.
class ElencoProgetti : public QListWidget {
    Q_OBJECT
  public:
    explicit ElencoProgetti(QWidget* genitore);
    /// Shows the rows and the chosen one. `file` knows the names that the texts stand for.
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

/// The rows of File1, for the view.
class RigheFile1 : public QAbstractListModel {
    Q_OBJECT
  public:
    RigheFile1(const Stato& s, QObject* genitore) : QAbstractListModel(genitore), s_(s) {}
    int rowCount(const QModelIndex& sopra = {}) const override;
    QVariant data(const QModelIndex& dove, int ruolo) const override;
    /// Resets the views if the rows have changed.
    void Rinnova();

  private:
    const Stato& s_;
    Lungo versione_ = -1;
    int righe_ = 0;
};

/// The list of the project's source files.
class ElencoFile1 : public QListView {
    Q_OBJECT
  public:
    ElencoFile1(const Stato& s, QWidget* genitore);
    /// Shows rows and selection as the state has them.
    void Mostra();

  signals:
    /// The user selected or deselected rows, or clicked on a selected one once more. Each row comes
    /// with its new selection.
    void Cliccata(const std::vector<std::pair<int, bool>>& cambiate);

  protected:
    void selectionChanged(const QItemSelection& si, const QItemSelection& no) override;

  private:
    const Stato& s_;
    RigheFile1* righe_;
    bool sincronizza_ = false;
};

} // namespace morvella
