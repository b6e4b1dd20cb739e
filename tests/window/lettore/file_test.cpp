// SPDX-License-Identifier: MIT
//
// A listing read by the reader: its lines, numbers, errors and procedures; what is sought in it;
// what happens when it changes below; how much is read and kept.
#include "window/lettore/banco.h"

#include <random>

namespace morvella::lettore {

namespace {

using namespace prove;

QByteArray Riga(Struttura& s, Lungo i) {
    const Vista riga = s.Riga(i);
    return QByteArray(riga.data(), riga.size());
}

constexpr Posizione Assente{-1, -1};

// What the opening of a file raises.
int Numero(const QString& percorso) {
    Struttura s(Di(percorso));
    try {
        s.Carica();
    } catch (const Errore& e) {
        return e.Numero;
    }
    return 0;
}

} // namespace

class ProvaFile : public QObject {
    Q_OBJECT

    Cartella cartella_;
    Struttura Letta(const QByteArray& bytes, bool lf = false) {
        Struttura s(Di(cartella_.Scrivi("s.log", bytes)), lf);
        s.Carica();
        return s;
    }
    Struttura Letta(const QList<QByteArray>& righe) { return Letta(Unite(righe)); }

  private slots:
    void RigheErroriProcedure();
    void RiquadriCheNonSonoProcedure();
    void OltreIlMilione();
    void NomiBrevi_data();
    void NomiBrevi();
    void FineRiga_data();
    void FineRiga();
    void RigaSenzaFine();
    void QualunqueOrdine();
    void UnMilioneDiRighe();
    void Numeri();
    void Trova_data();
    void Trova();
    void TrovaTraIBlocchi();
    void TrovaNellaRiga();
    void Guasti();
    void SenzaPermesso();
    void CambiaSotto();
    void Appigli();
    void Tabulatori();
};

void ProvaFile::RigheErroriProcedure() {
    const QList<QByteArray> righe = Esempio();
    Struttura s = Letta(righe);
    QCOMPARE(s.Righe(), 28);
    for (int i = 0; i < 28; ++i) QCOMPARE(Riga(s, i), righe[i]);
    QCOMPARE(Riga(s, 28), QByteArray());
    QCOMPARE(Riga(s, -1), QByteArray());
    QCOMPARE(s.Colonne(), 115); // the box: 14 and 101
    QCOMPARE(s.Errori(), (std::vector<Lungo>{21, 26}));

    const auto& p = s.Procedure();
    QCOMPARE(p.size(), 3u);
    QCOMPARE(p[0].Riga, 2);
    QCOMPARE(p[0].Numero, 3);
    QCOMPARE(p[0].Testa, Testo("Private Sub Prova(n As Integer)"));
    QVERIFY(!p[0].Aperta && p[0].Riquadro);
    QCOMPARE(p[1].Riga, 17);
    QCOMPARE(p[1].Numero, 14);
    QVERIFY(p[1].Aperta && p[1].Riquadro);
    // A head without a box: its end is what is known of it.
    QCOMPARE(p[2].Riga, 26);
    QCOMPARE(p[2].Numero, 20);
    QCOMPARE(p[2].Testa, Testo("End Sub"));
    QVERIFY(p[2].Aperta && !p[2].Riquadro);

    QCOMPARE(s.ProceduraDi(1), -1);
    QCOMPARE(s.ProceduraDi(2), 0);
    QCOMPARE(s.ProceduraDi(16), 0);
    QCOMPARE(s.ProceduraDi(17), 1);
    QCOMPARE(s.ProceduraDi(27), 2);
}

void ProvaFile::RiquadriCheNonSonoProcedure() {
    // A Type, and a box whose head stands elsewhere, are none; "subtotal = 1" begins as a Sub does.
    QList<QByteArray> righe = Riquadro("000001", "Private Type Punto");
    righe << Riquadro("000009", "subtotal = 1");
    QList<QByteArray> storto = Riquadro("000010", "Sub Storta()");
    storto[2].insert(11, ' ');
    righe << storto;
    QList<QByteArray> scoperto = Riquadro("000011", "Sub Scoperta()");
    scoperto.removeAt(1);
    righe << scoperto;
    // Behind the end of a procedure an error line belongs to another.
    righe << Riquadro("000012", "Sub A()") << G("000013     ···End Sub") << Errore11
          << G("000014     ······End Property");
    Struttura s = Letta(righe);
    const auto& p = s.Procedure();
    QCOMPARE(p.size(), 3u);
    QCOMPARE(p[0].Testa, Testo("subtotal = 1"));
    QCOMPARE(p[1].Testa, Testo("Sub A()"));
    QVERIFY(!p[1].Aperta);
    QCOMPARE(p[2].Testa, Testo("End Property"));

    Struttura mozza = Letta(Errore11 + "\r\n"); // cut behind its error line
    QCOMPARE(mozza.Errori().size(), 1u);
    QCOMPARE(mozza.Procedure().size(), 1u);
    QCOMPARE(mozza.Procedure()[0].Testa, Testo());
}

// The field is five blanks there, and everything stands six columns further left.
void ProvaFile::OltreIlMilione() {
    const QByteArray p(8, ' ');
    const QByteArray stelle = p + QByteArray(101, '*');
    const QByteArray vuoto = p + "*" + QByteArray(99, ' ') + "*";
    Struttura s = Letta({G("999999     ···x"), stelle, vuoto, "     " + p + "  Sub Tardi()", vuoto, stelle,
                         G("········┌─>If a Then b"), "     " + Errore11.mid(11), G("···········End Sub")});
    QCOMPARE(s.Procedure().size(), 1u);
    QCOMPARE(s.Procedure()[0].Riga, 3);
    QCOMPARE(s.Procedure()[0].Numero, 0);
    QVERIFY(s.Procedure()[0].Aperta);
    QCOMPARE(s.Errori(), (std::vector<Lungo>{7}));
    QCOMPARE(s.RigaDiNumero(1000000).value_or(-1), 0); // the last that has a number
}

void ProvaFile::NomiBrevi_data() {
    QTest::addColumn<QByteArray>("testa");
    QTest::addColumn<QByteArray>("nome");
    const char* casi[][2] = {
        {"Private Sub Prova(n As Integer)", "Prova"},
        {"Public Function Somma() As Long", "Somma"},
        {"Sub a()", "a"},
        {"Sub a", "a"},
        {"PUBLIC STATIC SUB B ()", "B"},
        {"Property Get Nome() As String", "Nome (Property Get)"},
        {"Public Property Let Nome(s As String)", "Nome (Property Let)"},
        {"subtotal = 1", "subtotal = 1"},
        {"Sub ", "Sub "},
        {"Function Fmt$(ByVal in$)", "Fmt$"},
    };
    for (const auto& caso : casi) QTest::newRow(caso[0]) << QByteArray(caso[0]) << QByteArray(caso[1]);
}

void ProvaFile::NomiBrevi() {
    QFETCH(QByteArray, testa);
    QFETCH(QByteArray, nome);
    QCOMPARE(NomeBreve({0, 0, testa.toStdString(), true, false}), nome.toStdString());
    QCOMPARE(NomeBreve({0, 0, "End Sub", false, true}), Testo("End Sub (testa senza riquadro)"));
}

void ProvaFile::FineRiga_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("lf");
    QTest::addColumn<QList<QByteArray>>("righe");
    using Righe = QList<QByteArray>;
    QTest::newRow("vuoto") << QByteArray() << false << Righe{};
    QTest::newRow("una riga vuota") << QByteArray("\r\n") << false << Righe{""};
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << false << Righe{"a", "b"};
    QTest::newRow("senza fine") << QByteArray("a\r\nb") << false << Righe{"a", "b"};
    QTest::newRow("righe vuote") << QByteArray("\r\n\r\nb\r\n\r\n") << false << Righe{"", "", "b", ""};
    // As the tool wrote them: with a CR LF in the file a lone LF is a byte of its line.
    QTest::newRow("LF dentro") << QByteArray("a\nb\r\nc\n") << false << Righe{"a\nb", "c\n"};
    QTest::newRow("LF dentro, --lf") << QByteArray("a\nb\r\nc\n") << true << Righe{"a", "b", "c"};
    QTest::newRow("solo LF") << QByteArray("a\nb\n\nc") << false << Righe{"a", "b", "", "c"};
    QTest::newRow("CR dentro") << QByteArray("a\rb\r\r\nc\r") << false << Righe{"a\rb\r", "c\r"};
    QTest::newRow("CR e LF") << QByteArray("\n\r\n") << false << Righe{"\n"};
    QTest::newRow("zero") << QByteArray("a\0b\r\n", 5) << false << Righe{QByteArray("a\0b", 3)};
}

void ProvaFile::FineRiga() {
    QFETCH(QByteArray, bytes);
    QFETCH(bool, lf);
    QFETCH(QList<QByteArray>, righe);
    Struttura s = Letta(bytes, lf);
    QList<QByteArray> lette;
    for (Lungo i = 0; i < s.Righe(); ++i) {
        lette << Riga(s, i);
        QVERIFY(!s.Spezzata(i));
    }
    QCOMPARE(lette, righe);
}

// Any file can be shown: a line without an end is cut, and nothing of it is lost.
void ProvaFile::RigaSenzaFine() {
    constexpr Lungo L = Struttura::LimiteRiga;
    Struttura intera = Letta(QByteArray(L, 'x') + "\r\ny\r\n");
    QCOMPARE(intera.Righe(), 2);
    QVERIFY(!intera.Spezzata(0));
    QCOMPARE(Len(intera.Riga(0)), L);

    Struttura oltre = Letta(QByteArray(L + 1, 'x') + "\r\ny\r\n");
    QCOMPARE(oltre.Righe(), 3);
    QVERIFY(oltre.Spezzata(0));
    QVERIFY(!oltre.Spezzata(1));
    QCOMPARE(Riga(oltre, 1), QByteArray("x"));
    QCOMPARE(Riga(oltre, 2), QByteArray("y"));

    Struttura lunga = Letta(QByteArray(3 * L + 7, 'x'));
    QCOMPARE(lunga.Righe(), 4);
    QCOMPARE(Len(lunga.Riga(3)), 7);
    QCOMPARE(lunga.Colonne(), L);
    QVERIFY(lunga.BytesTenuti() < 6u * (L + 300 * 1024));
}

void ProvaFile::QualunqueOrdine() {
    QList<QByteArray> righe;
    std::mt19937 caso(11);
    for (int i = 0; i < 6000; ++i) // a few long ones, so that blocks end by lines and by bytes
        righe << QByteArray::number(i) +
                     QByteArray(static_cast<int>(i % 97 ? caso() % 60 : caso() % 60000), 'z');
    Struttura s = Letta(righe);
    QCOMPARE(s.Righe(), 6000);
    for (int i = 0; i < 20000; ++i) {
        const auto quale = static_cast<int>(caso() % 6000);
        QCOMPARE(Riga(s, quale), righe[quale]);
    }
}

// What is asserted is the work: each byte once for the opening, and a block for a look anywhere.
void ProvaFile::UnMilioneDiRighe() {
    QByteArray bytes;
    bytes.reserve(40'000'000);
    for (int i = 1; i <= 1'000'000; ++i) {
        if (i <= 999'999) {
            const QByteArray n = QByteArray::number(i);
            bytes.append(6 - n.size(), '0').append(n);
        }
        bytes.append("        x = x + 1 ' riga di prova\r\n");
    }
    const auto misura = static_cast<std::uint64_t>(bytes.size());
    Struttura s(Di(cartella_.Scrivi("milione.log", bytes)));
    bytes.clear();
    bytes.squeeze();
    s.Carica();
    QCOMPARE(s.Righe(), 1'000'000);
    QCOMPARE(s.BytesLetti(), misura);
    QVERIFY(s.BytesTenuti() < 64 * 1024); // an offset each thousand lines

    const auto prima = s.BytesLetti();
    QVERIFY(s.Riga(777'776).substr(0, 6) == "777777");
    QVERIFY(s.BytesLetti() - prima <= 300 * 1024);
    const auto dopo = s.BytesLetti();
    for (Lungo i = 777'700; i < 777'760; ++i) QVERIFY(!s.Riga(i).empty());
    QVERIFY(s.BytesLetti() - dopo <= 300 * 1024);

    const auto cercato = s.BytesLetti();
    QCOMPARE(s.RigaDiNumero(500'000).value_or(-1), 499'999);
    QVERIFY(s.BytesLetti() - cercato <= 600 * 1024);

    for (Lungo i = 0; i < s.Righe(); i += 5000) QVERIFY(!s.Riga(i).empty());
    QVERIFY(s.BytesTenuti() < 3 * 1024 * 1024);
}

void ProvaFile::Numeri() {
    // Comments were left out: 4 to 6 are missing.
    Struttura s = Letta({"testata", G("000001     ···a"), G("000002     ···b"), G("000003     ···c"),
                         G("000007     ···d"), Errore11, G("000008     ···e")});
    QCOMPARE(Struttura::NumeroDi(s.Riga(0)), 0);
    QCOMPARE(Struttura::NumeroDi(s.Riga(4)), 7);
    QCOMPARE(Struttura::NumeroDi(s.Riga(5)), 0);
    const std::pair<Lungo, Lungo> casi[] = {{0, 1}, {1, 1}, {3, 3}, {4, 4},        {6, 4},
                                            {7, 4}, {8, 6}, {9, 6}, {999999999, 6}};
    for (const auto& [numero, riga] : casi) QCOMPARE(s.RigaDiNumero(numero).value_or(-1), riga);
    QVERIFY(!Letta(QByteArray("a\r\nb\r\n")).RigaDiNumero(1).has_value());
    QVERIFY(!Letta(QByteArray()).RigaDiNumero(1).has_value());
}

void ProvaFile::Trova_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<bool>("avanti");
    QTest::addColumn<QPoint>("da"); // byte, line
    QTest::addColumn<QPoint>("atteso");
    const QPoint no(-1, -1);
    const QPoint cima(0, 0), fondo(0, 28);
    QTest::newRow("primo") << "prova" << true << cima << QPoint(39, 2); // 11 + 16 blanks + "Private Sub "
    QTest::newRow("maiuscole") << "PROVA" << true << cima << QPoint(39, 2);
    QTest::newRow("accento piegato") << "perché" << true << cima << QPoint(27, 10);
    QTest::newRow("il secondo") << "perché" << true << QPoint(28, 10) << QPoint(16, 23);
    QTest::newRow("anche qui") << "perché" << true << QPoint(27, 10) << QPoint(27, 10);
    QTest::newRow("non gira") << "perché" << true << QPoint(17, 23) << no;
    QTest::newRow("indietro") << "PERCHÉ" << false << fondo << QPoint(16, 23);
    QTest::newRow("indietro, prima di") << "PERCHÉ" << false << QPoint(16, 23) << QPoint(27, 10);
    QTest::newRow("indietro, mai") << "perché" << false << QPoint(27, 10) << no;
    QTest::newRow("connettore") << "╔═>for" << true << cima << QPoint(14, 6);
    QTest::newRow("connettori e blanks") << "║  ┌─>if i" << true << cima << QPoint(14, 7);
    QTest::newRow("barra") << "══Exit" << true << cima << QPoint(20, 8); // 11 + "<<" + 9 strokes, two of them
    // The letters that share a connector's byte are not the connector.
    QTest::newRow("É") << "ÉÍ" << true << cima << no;
    QTest::newRow("é") << "ché" << true << cima << QPoint(30, 10);
    QTest::newRow("Ú") << "Ú" << true << cima << no;
    QTest::newRow("errore") << "PIÙ elementi" << true << cima << QPoint(49, 21); // 11 + 38
    QTest::newRow("due righe") << "Next i\r\n" << true << cima << no;
    QTest::newRow("assente") << "zebra" << true << cima << no;
    QTest::newRow("non mostrato") << "日" << true << cima << no;
    QTest::newRow("numero") << "000016" << true << cima << QPoint(0, 22);
    QTest::newRow("vuoto") << "" << true << cima << no;
}

void ProvaFile::Trova() {
    QFETCH(QString, testo);
    QFETCH(bool, avanti);
    QFETCH(QPoint, da);
    QFETCH(QPoint, atteso);
    Struttura s = Letta(Esempio());
    const auto dove = s.Trova(Ago(testo.toStdU16String()), {da.y(), da.x()}, avanti).value_or(Assente);
    QCOMPARE(QPoint(static_cast<int>(dove.Byte), static_cast<int>(dove.Riga)), atteso);
}

void ProvaFile::TrovaTraIBlocchi() {
    QList<QByteArray> righe;
    for (int i = 0; i < 5000; ++i) righe << (i == 1500 || i == 4000 ? "ago e ago" : "paglia");
    Struttura s = Letta(righe);
    const Ago ago(u"AGO");
    const Posizione tutti[] = {{1500, 0}, {1500, 6}, {4000, 0}, {4000, 6}};
    Posizione da;
    for (const Posizione& atteso : tutti) {
        const auto qui = s.Trova(ago, da, true).value_or(Assente);
        QVERIFY(qui == atteso);
        da = {qui.Riga, qui.Byte + 1};
    }
    QVERIFY(!s.Trova(ago, da, true));
    da = {5000, 0};
    for (int i = 3; i >= 0; --i) {
        da = s.Trova(ago, da, false).value_or(Assente);
        QVERIFY(da == tutti[i]);
    }
    QVERIFY(!s.Trova(ago, da, false));
    QVERIFY(!Letta(QByteArray()).Trova(ago, {}, true));
}

void ProvaFile::TrovaNellaRiga() {
    const QByteArray bytes = G("000001     ···│··É = É");
    const Vista riga(bytes.data(), static_cast<std::size_t>(bytes.size()));
    std::vector<Porzione> fette;
    TagliaRiga(riga, fette);
    QCOMPARE(Ago(u"é").In(riga, fette, 0, Len(riga)), 17);
    QCOMPARE(Ago(u"é").In(riga, fette, 18, Len(riga)), 21);
    QCOMPARE(Ago(u"é").In(riga, fette, 18, 21), -1);
    QCOMPARE(Ago(u"│").In(riga, fette, 0, Len(riga)), 14);
    QCOMPARE(Ago(u"³").In(riga, fette, 0, Len(riga)), -1);
    QCOMPARE(Ago().In(riga, fette, 0, Len(riga)), -1);
    // A connector written by its letters stays letters.
    const Vista lettere = "\xC9\xCD>x";
    TagliaRiga(lettere, fette);
    QCOMPARE(Ago(u"ÉÍ>X").In(lettere, fette, 0, 4), 0);
    QCOMPARE(Ago(u"╔═>").In(lettere, fette, 0, 4), -1);
}

void ProvaFile::Guasti() {
    QCOMPARE(Numero(cartella_.Percorso("manca.log")), int{ErrFileAssente});
    QCOMPARE(Numero(cartella_.Percorso("")), int{ErrAccesso}); // the directory itself
}

void ProvaFile::SenzaPermesso() {
    const QString chiuso = cartella_.Scrivi("chiuso.log", "x\r\n");
    QFile::setPermissions(chiuso, {});
    if (QFile prova(chiuso); prova.open(QIODevice::ReadOnly)) QSKIP("nothing is closed to this user");
    QCOMPARE(Numero(chiuso), int{ErrAccesso});
}

void ProvaFile::CambiaSotto() {
    const QString percorso = cartella_.Scrivi("muta.log", Unite(Esempio()));
    Struttura s(Di(percorso));
    QVERIFY(s.Cambiata());
    s.Carica();
    QVERIFY(!s.Cambiata());
    // Cut below: what is gone comes out empty, and nothing falls.
    cartella_.Scrivi("muta.log", "corta\r\n");
    QVERIFY(s.Cambiata());
    for (Lungo i = 0; i < s.Righe(); ++i) s.Riga(i);
    QCOMPARE(Riga(s, 27), QByteArray());
    s.Trova(Ago(u"x"), {}, true);
    QCOMPARE(s.RigaDiNumero(20).has_value(), false);
    s.Carica();
    QCOMPARE(s.Righe(), 1);
    QVERIFY(!s.Cambiata());
    QFile::remove(percorso);
    QVERIFY(s.Cambiata());
    QVERIFY_THROWS_EXCEPTION(Errore, s.Carica());
    QCOMPARE(s.Righe(), 1); // as it was
    s.Svuota();
    QCOMPARE(s.Righe(), 0);
    QVERIFY(s.Procedure().empty());
}

// Lines came in front: the place is the same line of the same procedure.
void ProvaFile::Appigli() {
    Struttura s = Letta(Esempio());
    const Appiglio dentro = s.Prendi({20, 5});
    const Appiglio prima = s.Prendi({1, 3});
    Struttura piu = Letta(QList<QByteArray>{"a", "b", "c"} + Esempio());
    QVERIFY(piu.Ritrova(dentro) == (Posizione{23, 5}));
    QVERIFY(piu.Ritrova(prima) == (Posizione{1, 3})); // above any procedure: the same line
    Struttura altra = Letta(QList<QByteArray>{"a", "b"});
    QVERIFY(altra.Ritrova(dentro) == (Posizione{1, 5})); // it is gone: as near as there is
    QVERIFY(Letta(QByteArray()).Ritrova(dentro) == (Posizione{0, 5}));

    // Of two with one head, the second.
    const QList<QByteArray> due = Riquadro("000001", "Sub A()") + Riquadro("000002", "Sub A()");
    Struttura doppia = Letta(due);
    const Appiglio seconda = doppia.Prendi({8, 0}); // its head is line 7
    Struttura spostata = Letta(QList<QByteArray>{"x"} + due);
    QVERIFY(spostata.Ritrova(seconda) == (Posizione{9, 0}));
}

void ProvaFile::Tabulatori() {
    const Vista riga = "a\tb\t\tc"; // columns 0, 1, 8, 9, 16, 24; the end 25
    const Lungo colonne[] = {0, 1, 8, 9, 16, 24, 25};
    for (Lungo i = 0; i <= 6; ++i) QCOMPARE(ColonnaDiByte(riga, i), colonne[i]);
    const std::pair<Lungo, Lungo> bytes[] = {{0, 0},  {1, 1},  {5, 1},  {7, 1},  {8, 2}, {9, 3},
                                             {15, 3}, {16, 4}, {24, 5}, {25, 6}, {99, 6}};
    for (const auto& [colonna, byte] : bytes) QCOMPARE(ByteDiColonna(riga, colonna), byte);
    QCOMPARE(Letta(QByteArray("x\r\na\tb\r\n")).Colonne(), 9);
}

} // namespace morvella::lettore

QTEST_GUILESS_MAIN(morvella::lettore::ProvaFile)
#include "file_test.moc"
