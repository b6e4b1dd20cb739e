// SPDX-License-Identifier: MIT
//
// The pages in a real browser: node prova.mjs PROGRAMMA LAVORO SCHERMATE
//
// Documents the sample project, and a small one with modules in sub-folders, below LAVORO, then
// reads the pages as a person does: opens the index, follows every link, goes home by the
// button. A page is right when its pictures and its background are there in their own size,
// nothing failed to load, the console is silent and the accented letters are what they should be.
// LAVORO and SCHERMATE (a picture of every page, to be looked at) are directories.
import { execFileSync } from 'node:child_process';
import { copyFileSync, cpSync, mkdirSync, readdirSync, rmSync, utimesSync, writeFileSync } from 'node:fs';
import { basename, dirname, join, resolve } from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';

const radice = resolve(dirname(fileURLToPath(import.meta.url)), '../..');
if (process.argv.length !== 5) {
  console.error('uso: node prova.mjs PROGRAMMA LAVORO SCHERMATE');
  process.exit(2);
}
const [programma, lavoro, schermate] = process.argv.slice(2).map((nome) => resolve(nome));

const misure = {
  'p2.gif': [429, 39],
  'dario.gif': [429, 124],
  'home.gif': [102, 43],
  'a01.jpg': [333, 201],
  'a02.jpg': [398, 278],
  'a03.jpg': [205, 238],
};
const pazienza = 300000; // ms; ends what hangs, on a machine however busy
const titoloIndice = 'Indice Progetto di Documentazione';
const senzaMenu = 'non sono stati rilevati menù';
const giorno = new Date(2004, 4, 3, 10, 20); // when every module was last changed
const dataDelGiorno = '03/05/2004';

// What each page must say, in the order of the index, and which pictures it shows from top to
// bottom: p2.gif only where the module shows forms by name. Property procedures are not listed.
const coda = ['Dario.gif', 'home.GIF'];
const conForm = ['Dario.gif', 'p2.gif', 'home.GIF'];
const magazzino = [
  ['clsArticolo.cls', coda, ['Private Type tArticolo', 'Private Sub Class_Initialize()', senzaMenu]],
  ['clsInventario.cls', coda, ['Public Function ValoreTotale() As Currency', senzaMenu]],
  // The Data control's property "Options" ends the head: the ADO control below it is not seen.
  ['frmArticoli.frm', coda, ['DATABASE DAO', 'Public Sub NuovoArticolo()', senzaMenu]],
  ['frmInformazioni.frm', coda, ['Private Sub cmdOk_Click()', senzaMenu]],
  ['frmInventario.frm', coda, ['Private Sub Riempi()', senzaMenu]],
  ['frmMovimenti.frm', coda, ['Private Function Controlla() As Boolean', senzaMenu]],
  ['frmPrincipale.frm', conForm, ["Menu presenti nell'applicazione", '"&Nuovo articolo"', 'FRMINFORMAZIONI']],
  ['modGenerale.bas', conForm, ['Public Sub Main()', 'FRMPRINCIPALE', senzaMenu]],
  ['Quantità.bas', coda, ['Public Function FormattaQuantità(ByVal lQta As Long) As String', senzaMenu]],
];

// A project as real ones are, with its modules in folders.
const cartelle = [
  ['Codice\\Città\\modDue.bas', coda, ['Public Function PiùLontana() As String', senzaMenu]],
  ['Finestre\\frmUno.frm', conForm, ['Private Sub Form_Load()', 'FRMTRE', senzaMenu]],
  ['frmTre.frm', coda, ['Private Sub Form_Click()', senzaMenu]],
];
const sorgentiCartelle = {
  'Cartelle.vbp': ['Type=Exe', 'Form=Finestre\\frmUno.frm', 'Module=modDue; Codice\\Città\\modDue.bas', 'Form=frmTre.frm'],
  'Codice/Città/modDue.bas': ['Attribute VB_Name = "modDue"', 'Public Function PiùLontana() As String', 'End Function'],
  'Finestre/frmUno.frm': ['VERSION 5.00', 'Begin VB.Form frmUno', 'End', 'Attribute VB_Name = "frmUno"',
    'Private Sub Form_Load()', 'frmTre.Show', 'End Sub'],
  'frmTre.frm': ['VERSION 5.00', 'Begin VB.Form frmTre', 'End', 'Attribute VB_Name = "frmTre"',
    'Private Sub Form_Click()', 'Unload Me', 'End Sub'],
};

const aiuto = ['è stato attentamente', 'dà modo', 'può eliminare', 'possibilità', 'Programma : Morvella'];

// --- what is counted ---------------------------------------------------------------------------

let passate = 0;
let fallite = 0;

function prova(dove, cosa, riuscita, avuto) {
  if (riuscita) {
    passate += 1;
    return;
  }
  fallite += 1;
  console.log(`FALLITA  ${dove}: ${cosa}${avuto === undefined ? '' : ` - avuto ${JSON.stringify(avuto)}`}`);
}

function uguale(dove, cosa, avuto, atteso) {
  prova(dove, cosa, JSON.stringify(avuto) === JSON.stringify(atteso), avuto);
}

// --- the projects ------------------------------------------------------------------------------

function esegui(...argomenti) {
  execFileSync(programma, argomenti, { cwd: lavoro, stdio: ['ignore', 'ignore', 'inherit'] });
}

function nuova(nome) {
  const directory = join(lavoro, nome);
  rmSync(directory, { recursive: true, force: true });
  mkdirSync(directory, { recursive: true });
  return directory;
}

function documentaMagazzino(nome) {
  const directory = nuova(nome);
  cpSync(join(radice, 'examples/Magazzino'), directory, { recursive: true });
  for (const file of readdirSync(directory)) utimesSync(join(directory, file), giorno, giorno);
  esegui('documenta', '--no', join(directory, 'Magazzino.vbp'));
  return join(directory, 'Appoggio');
}

function documentaCartelle(nome) {
  const directory = nuova(nome);
  for (const [file, righe] of Object.entries(sorgentiCartelle)) {
    mkdirSync(dirname(join(directory, file)), { recursive: true });
    writeFileSync(join(directory, file), righe.map((riga) => `${riga}\r\n`).join(''), 'latin1');
    utimesSync(join(directory, file), giorno, giorno);
  }
  // Twice: the second run finds folders, pictures and pages in place.
  for (let volta = 0; volta < 2; volta += 1)
    esegui('documenta', '--no', '--sottocartelle', join(directory, 'Cartelle.vbp'));
  return join(directory, 'Appoggio');
}

function scriviGuida(nome) {
  const directory = nuova(nome);
  for (const figura of ['A01.jpg', 'A02.jpg', 'A03.jpg'])
    copyFileSync(join(dirname(programma), figura), join(directory, figura));
  esegui('guida', '--senza-processi', '--programma', directory);
  return join(directory, 'tavolerio.htm');
}

// --- the pages ---------------------------------------------------------------------------------

// A page that notes whatever goes wrong while it is open.
async function apri(contesto) {
  const pagina = await contesto.newPage();
  pagina.guai = [];
  pagina.on('console', (detto) => {
    if (['error', 'warning'].includes(detto.type())) pagina.guai.push(`console: ${detto.text()}`);
  });
  pagina.on('pageerror', (errore) => pagina.guai.push(`errore: ${errore.message}`));
  // What a page had still to load when it was left is no failure of that page.
  pagina.on('requestfailed', (richiesta) => {
    const perche = richiesta.failure().errorText;
    if (perche !== 'net::ERR_ABORTED') pagina.guai.push(`${perche}: ${richiesta.url()}`);
  });
  return pagina;
}

const fileDi = (pagina) => fileURLToPath(pagina.url().replace(/[?#].*$/, ''));

// Follows a link and waits until the browser rests on `file`.
async function segui(pagina, collegamento, file) {
  await collegamento.click();
  await pagina.waitForURL((url) => url.protocol === 'file:' && fileURLToPath(url) === file,
    { waitUntil: 'load' });
}

async function guarda(dove, pagina, { file, testi, figure, sfondo = true }) {
  uguale(dove, 'è la pagina chiesta', fileDi(pagina), file);
  const visto = await pagina.evaluate(async () => {
    const misure = (figura) => ({
      nome: figura.getAttribute('src'),
      caricata: figura.complete && figura.naturalWidth > 0,
      vera: [figura.naturalWidth, figura.naturalHeight],
      mostrata: [figura.clientWidth, figura.clientHeight],
    });
    const dipinto = getComputedStyle(document.body).backgroundImage.match(/^url\("(.*)"\)$/);
    let sfondo = null;
    if (dipinto) {
      const figura = new Image();
      figura.src = dipinto[1];
      sfondo = { url: dipinto[1], larga: await figura.decode().then(() => figura.naturalWidth, () => 0) };
    }
    return {
      testo: document.body.innerText.replace(/\u00a0/g, ' '),
      figure: [...document.images].map(misure),
      codifica: document.characterSet,
      sfondo,
    };
  });
  for (const testo of testi) prova(dove, `dice «${testo}»`, visto.testo.includes(testo), visto.testo.slice(0, 200));
  // UTF-8 read as Windows-1252 begins with one of the first two; the last stands for no letter.
  prova(dove, 'le lettere accentate sono intere', !/[ÃÂ\ufffd]/.test(visto.testo));
  uguale(dove, 'la codifica', visto.codifica, 'windows-1252');
  uguale(dove, 'le figure, in ordine', visto.figure.map((figura) => figura.nome), figure);
  for (const figura of visto.figure) {
    const attesa = misure[figura.nome.toLowerCase()];
    prova(dove, `${figura.nome} si vede`, figura.caricata);
    uguale(dove, `${figura.nome}: la sua misura`, figura.vera, attesa);
    uguale(dove, `${figura.nome}: la misura sulla pagina`, figura.mostrata, attesa);
  }
  if (sfondo) {
    prova(dove, 'lo sfondo è BLULETHR.GIF', visto.sfondo?.url.endsWith('/BLULETHR.GIF'), visto.sfondo);
    prova(dove, 'lo sfondo si vede', visto.sfondo?.larga > 0, visto.sfondo);
  } else {
    uguale(dove, 'nessuno sfondo', visto.sfondo, null);
  }
  const nome = dove.replaceAll(/[\\/: ]+/g, '-');
  await pagina.screenshot({ path: join(schermate, `${nome}.png`), fullPage: true });
  uguale(dove, 'nessun guaio', pagina.guai.splice(0), []);
}

// Opens the index, follows each link, looks at the page and goes home.
async function visita(contesto, progetto, directory, pagine) {
  const indice = join(directory, 'Indice.Html');
  const pagina = await apri(contesto);
  await pagina.goto(pathToFileURL(indice).href);
  const voci = pagine.map(([voce]) => voce);
  await guarda(`${progetto}: indice`, pagina, {
    file: indice,
    testi: ['Documentazione progetto ...', 'Indice generale Form e/o procedure', ...voci],
    figure: ['Dario.gif'],
  });
  uguale(`${progetto}: indice`, 'il titolo', await pagina.title(), titoloIndice);
  const collegamenti = pagina.locator('a[href]');
  uguale(`${progetto}: indice`, 'i collegamenti', (await collegamenti.allInnerTexts()).map((t) => t.trim()), voci);
  for (const [posto, [voce, figure, testi]] of pagine.entries()) {
    const dove = `${progetto}: ${voce}`;
    const file = join(directory, `${voce.slice(0, -4).replaceAll('\\', '/')}.Html`);
    try {
      await segui(pagina, collegamenti.nth(posto), file);
      await guarda(dove, pagina, { file, testi: [voce, dataDelGiorno, ...testi], figure });
      prova(dove, 'il titolo', (await pagina.title()).endsWith(`\\Appoggio\\${voce.slice(0, -4)}.Html`), await pagina.title());
      await segui(pagina, pagina.locator('a:has(img[src="home.GIF"])'), indice);
      uguale(dove, 'torna a casa', [fileDi(pagina), await pagina.title()], [indice, titoloIndice]);
      uguale(dove, 'nessun guaio per tornare', pagina.guai.splice(0), []);
    } catch (errore) {
      prova(dove, 'si apre e torna a casa', false, errore.message.split('\n')[0]);
      await pagina.goto(pathToFileURL(indice).href);
      pagina.guai.splice(0);
    }
  }
  await pagina.close();
}

// The pages, the four pictures, the marker, and nothing else but the name that the pages use.
function contenuto(directory, pagine) {
  const attesi = new Set(['Indice.Html', 'OK.LOG', 'p2.gif', 'dario.gif', 'BLULETHR.GIF', 'home.GIF', 'Dario.gif',
    ...pagine.map(([voce]) => `${voce.slice(0, -4)}.Html`)]);
  uguale(basename(dirname(directory)), 'niente di più in Appoggio', readdirSync(directory).filter((nome) => !attesi.has(nome)), []);
}

async function prove(browser) {
  const contesto = await browser.newContext({ viewport: { width: 1024, height: 768 } });
  contesto.setDefaultTimeout(pazienza);
  // The links hold the project's whole path: a blank and an accent must come through.
  for (const nome of ['Magazzino', 'Il più vecchio magazzino']) {
    const directory = documentaMagazzino(nome);
    contenuto(directory, magazzino);
    await visita(contesto, nome, directory, magazzino);
  }
  await visita(contesto, 'Cartelle', documentaCartelle('Cartelle'), cartelle);

  const guida = scriviGuida('Guida');
  const pagina = await apri(contesto);
  await pagina.goto(pathToFileURL(guida).href);
  await guarda('Guida', pagina, { file: guida, testi: aiuto, figure: ['A01.jpg', 'A02.jpg', 'A03.jpg'], sfondo: false });
}

mkdirSync(lavoro, { recursive: true });
mkdirSync(schermate, { recursive: true });
const browser = await chromium.launch({
  timeout: pazienza,
  executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
  args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
    '--disable-component-update', '--disable-sync'],
});
try {
  await prove(browser);
} catch (errore) {
  prova('prova', 'arriva in fondo', false, errore.message);
} finally {
  await browser.close();
}
console.log(`${passate} passed, ${fallite} failed`);
process.exitCode = fallite === 0 && passate > 0 ? 0 : 1;
