#pragma once

#include <QKeySequence>
#include <QString>

#include <vector>

namespace tolmira {

// What a menu entry and its key do. The five screen states and the five agenda tabs follow each other.
enum class Comando {
  Nenhum, // a key without a menu entry
  NovaLetra,
  Estado0,
  Estado4 = Estado0 + 4,
  Imagem,
  Video,
  Cameras,
  Referencia,
  NavegaBiblia,
  ProcuraBiblia,
  ProximaEntrada,
  EntradaAnterior,
  DesceEntrada,
  SobeEntrada,
  Aba1,
  Aba5 = Aba1 + 4,
  Agenda,
  Texto,
  Estados,
  Temas,
  Folha, // the sheet of keys itself
};

// One line of the sheet. A line that stands for a menu entry has that entry's text and key.
struct Atalho {
  Comando comando = Comando::Nenhum;
  QKeySequence tecla; // of the menu entry
  QString teclas;     // as the sheet shows them
  QString texto;      // with the mnemonic of the menu entry, if any
  QString naFolha;    // what the sheet says where the entry's text needs its menu around it
};

struct GrupoDeAtalhos {
  QString titulo;
  std::vector<Atalho> atalhos;
};

// All keys of the console, in the order of the sheet. The menus take texts and keys from here.
const std::vector<GrupoDeAtalhos> &FolhaDeAtalhos();
const Atalho &AtalhoDe(Comando comando); // `comando` is not Nenhum

// The text as it is read outside its menu.
QString TextoDaFolha(const Atalho &atalho);

} // namespace tolmira
