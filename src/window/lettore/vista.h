// SPDX-License-Identifier: MIT
// window/lettore/vista.h
//
// Shows a listing: draws the visible lines and columns only, moves a caret, selects, copies, zooms.
// The window decides where to go; the listing itself is a Struttura.
#pragma once

#include <optional>

#include <QAbstractScrollArea>
#include <QBasicTimer>

#include "lettore/struttura.h"
#include "window/lettore/disegno.h"

namespace morvella::lettore {

class VistaStruttura : public QAbstractScrollArea {
    Q_OBJECT

  public:
    /// In percent; one step of the zoom is a tenth of the normal size.
    static constexpr int ZoomMinimo = 50, ZoomMassimo = 400, ZoomPasso = 10;
    /// Characters. A larger selection is not copied: the clipboard would hold it a second time.
    static constexpr Lungo LimiteCopia = Lungo{128} * 1024 * 1024;

    explicit VistaStruttura(QWidget* sopra = nullptr);

    /// Sets the listing, or none. It must outlive the view or be replaced first. To be called again
    /// after each Carica.
    void Mostra(Struttura* struttura);
    /// Sets the text that is shown where there are no lines.
    void DiceVuota(const QString& testo);

    Posizione Cursore() const noexcept { return cursore_; }
    Posizione Ancora() const noexcept { return ancora_; }
    bool Scelto() const noexcept { return cursore_ != ancora_; }
    /// Moves the caret and shows it; `estende` keeps the other end of the selection.
    void Vai(Posizione dove, bool estende = false);
    /// Selects from `da` to `a` and shows it, centred if it was out of sight.
    void Scegli(Posizione da, Posizione a);
    void ScegliTutto();
    /// The selected text, with LF between lines; nothing if it is too large.
    std::optional<QString> TestoScelto();
    /// Copies the selection to the clipboard; false if it is too large.
    bool Copia();

    /// Highlights every visible match of a text; an empty one removes the highlights.
    void Evidenzia(const Ago& ago);

    int Zoom() const noexcept { return zoom_; }
    void MettiZoom(int percento);

    Lungo PrimaRiga() const;
    void MettiPrimaRiga(Lungo riga);
    Lungo RigheInVista() const; // whole lines, at least 1
    const Griglia& Celle() const noexcept { return griglia_; }
    const Colori& Tinte() const noexcept { return colori_; }
    /// The place in the listing at a point of the viewport, in pixels.
    Posizione PostoDi(const QPoint& punto);
    /// The text of the caret's line, as a screen reader says it.
    QString RigaDetta() const;

  signals:
    void CursoreMosso();
    void ZoomCambiato(int percento);
    void CopiaTroppoGrande();

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void timerEvent(QTimerEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    bool event(QEvent* evento) override;

  private:
    enum class Misura { Byte, Parola, Riga };

    void Ricalcola(); // the grid of cells
    void MettiBarre();
    void MostraCursore(bool alCentro = false);
    void Sposta(Posizione dove, bool estende, bool tieniColonna = false);
    void TrascinaA(const QPoint& punto);
    Posizione Limita(Posizione dove);
    std::pair<Posizione, Posizione> Estesa(Posizione dove, Misura misura);
    Lungo Lunghezza(Lungo riga) { return Len(struttura_->Riga(riga)); }
    Lungo Righe() const { return struttura_ ? struttura_->Righe() : 0; }
    Lungo ColonneInVista() const;
    qreal Sinistra() const;
    void DisegnaUna(QPainter& penna, Lungo riga, qreal y);

    Struttura* struttura_ = nullptr;
    QString detto_;
    Griglia griglia_;
    qreal scala_ = 0;
    Colori colori_;
    Ago ago_;
    Posizione cursore_, ancora_;
    Lungo colonna_ = 0; // the column that the caret keeps when it moves up and down
    int zoom_ = 100;
    int rotella_ = 0;
    Misura misura_ = Misura::Byte;
    std::pair<Posizione, Posizione> presa_; // what was selected when the button went down
    bool trascina_ = false;
    QPoint ultimo_;
    QBasicTimer scorre_;
    QPoint doppio_;
    qint64 quandoDoppio_ = -1;
    std::vector<Porzione> fette_;
};

/// Lets screen readers say the caret's line. To be called once.
void AccessibilitaDellaVista();

} // namespace morvella::lettore
