#pragma once

#include <QString>

namespace tolmira {

// How captions of one kind look. Colours are those of the stores (0x00BBGGRR).
struct EstiloLegenda {
  int estilo = 1;
  int alinhamento = 0; // kept for the form; no composer reads it, nor fontSize
  bool Contorno = false;
  bool Sombra = false;
  bool fontBold = false;
  qint32 fontColor = 16777215;
  qint32 backColor = 0;
  double fontSize = 22;
  QString fontName = QStringLiteral("Arial");
  bool maiusculas = false;
  int transparencia = 6; // 0 clear to 10 opaque

  friend bool operator==(const EstiloLegenda &, const EstiloLegenda &) = default;
};

// Of passages. The projection's verse takes its capitals and the colours of the title from here too.
struct LegendaBiblia : EstiloLegenda {
  qint32 fontColorTitulo = 16777215;
  qint32 backColorTitulo = 16748288;
  int transparenciaTitulo = 9; // kept for the form; the title is always opaque
  bool fontBoldTitulo = true;

  friend bool operator==(const LegendaBiblia &, const LegendaBiblia &) = default;
};

// Of songs.
struct LegendaLetras : EstiloLegenda {
  LegendaLetras() {
    estilo = 3;
    alinhamento = 2;
    fontBold = true;
  }

  friend bool operator==(const LegendaLetras &, const LegendaLetras &) = default;
};

// The captions and their server, made once and handed by reference to those who read or write it; each field names its
// one writer.
struct EstadoLegenda {
  quint16 Porta = 4747;     // reading the settings; the server, when the operator gives it another
  QString Ip;               // the server, when it starts
  QString Url;              // the server, when it starts
  bool Parado = false;      // the server: the operator stopped it
  bool StartOnLoad = false; // reading the settings; the form
  QString UltimoPedido;     // the server: "Load", "Update", or empty before the first request
  QString TextoLegenda;     // command handler; emptied by another item and by the strip that leaves the frame

  LegendaBiblia Biblia; // reading and saving the settings
  LegendaLetras Letras; // the same; the composer makes of style 0 style 1
};

} // namespace tolmira
