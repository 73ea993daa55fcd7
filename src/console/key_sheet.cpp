#include "console/key_sheet.h"

#include <QObject>

#include "console/agenda.h"
#include "console/screen_controls.h"

namespace tolmira {

namespace {

Atalho Entrada(Comando comando, const QKeySequence &tecla, const QString &texto, const QString &naFolha = {}) {
  return {comando, tecla, tecla.toString(), texto, naFolha};
}

Atalho Tecla(const QString &teclas, const QString &texto) { return {Comando::Nenhum, {}, teclas, texto, {}}; }

Comando Depois(Comando primeiro, int passos) { return static_cast<Comando>(static_cast<int>(primeiro) + passos); }

std::vector<Atalho> Estados() {
  std::vector<Atalho> estados;
  for (int i = 0; i < 5; ++i)
    estados.push_back(Entrada(Depois(Comando::Estado0, i), QKeySequence(Qt::Key_F5 + i),
                              ScreenControls::LegendaDoEstado(i).trimmed()));
  estados.push_back(Entrada(Comando::Imagem, QKeySequence(Qt::CTRL | Qt::Key_G), QObject::tr("P&icture on the screen…"),
                            QObject::tr("Picture on the screen")));
  estados.push_back(Entrada(Comando::Video, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V),
                            QObject::tr("&Video control…"), QObject::tr("The control of the video on show")));
  estados.push_back(Entrada(Comando::Cameras, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), QObject::tr("Ca&meras…"),
                            QObject::tr("A camera behind the text")));
  estados.push_back(Tecla(QStringLiteral("Ctrl+A"), QObject::tr("A notice over whatever is on show")));
  return estados;
}

std::vector<Atalho> Agenda() {
  const auto alt = [](int key) { return QKeySequence(Qt::ALT | static_cast<Qt::Key>(key)); };
  const auto altShift = [](int key) { return QKeySequence(Qt::ALT | Qt::SHIFT | static_cast<Qt::Key>(key)); };
  std::vector<Atalho> linhas = {
      Tecla(QStringLiteral("Enter"), QObject::tr("Shows the chosen entry, in the list")),
      Entrada(Comando::ProximaEntrada, alt(Qt::Key_Down), QObject::tr("Next entry of the agenda")),
      Entrada(Comando::EntradaAnterior, alt(Qt::Key_Up), QObject::tr("Previous entry of the agenda")),
      Entrada(Comando::DesceEntrada, altShift(Qt::Key_Down), QObject::tr("Move the entry down")),
      Entrada(Comando::SobeEntrada, altShift(Qt::Key_Up), QObject::tr("Move the entry up"))};
  for (int n = 1; n <= NumeroDeAgendas; ++n)
    linhas.push_back(
        Entrada(Depois(Comando::Aba1, n - 1), alt(Qt::Key_0 + n), QObject::tr("Agenda tab &%1").arg(n)));
  linhas.push_back(Tecla(QStringLiteral("F2"), QObject::tr("Renames the agenda, on its tab")));
  return linhas;
}

std::vector<GrupoDeAtalhos> Folha() {
  const auto ctrl = [](Qt::Key key) { return QKeySequence(Qt::CTRL | key); };
  const auto ctrlShift = [](Qt::Key key) { return QKeySequence(Qt::CTRL | Qt::SHIFT | key); };
  return {
      {QObject::tr("The text on show"),
       {Tecla(QObject::tr("Down or Right"), QObject::tr("Next verse; the first press shows verse 1")),
        Tecla(QObject::tr("Up or Left"), QObject::tr("Previous verse")),
        Tecla(QObject::tr("Ctrl, held"), QObject::tr("Holds the projection; letting go sends the verse")),
        Tecla(QObject::tr("PageDown, PageUp"), QObject::tr("Next and previous slide; Home and End: first and last")),
        Tecla(QObject::tr("PageUp, PageDown"), QObject::tr("Style and the other sliders, on a slider"))}},
      {QObject::tr("The screen"), Estados()},
      {QObject::tr("The agenda"), Agenda()},
      {QObject::tr("Songs and the Bible"),
       {Entrada(Comando::NovaLetra, ctrl(Qt::Key_N), QStringLiteral("Type or paste the lyrics manually")),
        Tecla(QStringLiteral("Ctrl+M"), QObject::tr("Find a song and add it")),
        Entrada(Comando::Referencia, QKeySequence(Qt::Key_F10), QObject::tr("&Type a reference"),
                QObject::tr("Type a Bible reference")),
        Tecla(QStringLiteral("Ctrl+B"), QObject::tr("Bible versions")),
        Entrada(Comando::NavegaBiblia, ctrlShift(Qt::Key_B), QObject::tr("&Browse…"),
                QObject::tr("Browse the Bible")),
        Entrada(Comando::ProcuraBiblia, ctrlShift(Qt::Key_F), QObject::tr("&Search by words…"),
                QObject::tr("Search the Bible by words"))}},
      {QObject::tr("Places"),
       {Entrada(Comando::Folha, QKeySequence(Qt::Key_F1), QObject::tr("&Keyboard Shortcuts")),
        Entrada(Comando::Agenda, QKeySequence(Qt::Key_F3), QObject::tr("To the agenda")),
        Entrada(Comando::Texto, QKeySequence(Qt::Key_F4), QObject::tr("To the text")),
        Entrada(Comando::Estados, QKeySequence(Qt::Key_F11), QObject::tr("To the screen states")),
        Entrada(Comando::Temas, QKeySequence(Qt::Key_F12), QObject::tr("To the themes")),
        Tecla(QObject::tr("Tab, Shift+Tab"), QObject::tr("From control to control")),
        Tecla(QObject::tr("Space or Enter"), QObject::tr("Presses a button or a theme")),
        Tecla(QStringLiteral("Ctrl+E"), QObject::tr("Opens a theme's editor, on its tile")),
        Tecla(QObject::tr("Shift+F10"), QObject::tr("Menu of the chosen entry or theme"))}},
  };
}

} // namespace

const std::vector<GrupoDeAtalhos> &FolhaDeAtalhos() {
  static const std::vector<GrupoDeAtalhos> folha = Folha();
  return folha;
}

const Atalho &AtalhoDe(Comando comando) {
  for (const GrupoDeAtalhos &grupo : FolhaDeAtalhos())
    for (const Atalho &atalho : grupo.atalhos)
      if (atalho.comando == comando)
        return atalho;
  qFatal("a command without a key");
}

QString TextoDaFolha(const Atalho &atalho) {
  QString texto = atalho.naFolha.isEmpty() ? atalho.texto : atalho.naFolha;
  return texto.remove(u'&');
}

} // namespace tolmira
