#pragma once

#include "captions/estado_legenda.h"

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

class QGridLayout;
class QHBoxLayout;

namespace tolmira {

class ColourField;

// The controls of one kind of caption. They write the record that they are given, at once.
class CaptionLook : public QWidget {
  Q_OBJECT

public:
  explicit CaptionLook(LegendaBiblia &biblia, QWidget *parent = nullptr);
  explicit CaptionLook(LegendaLetras &letras, QWidget *parent = nullptr);

  void Mostra(); // what the record holds

signals:
  void Mudou(); // by the operator

private:
  struct Nomes;
  CaptionLook(EstiloLegenda &estilo, const Nomes &nomes, QWidget *parent);

  QHBoxLayout *Row(const QString &caption, QWidget *buddy = nullptr);
  void Slider(const QString &name, const QString &caption, int least, int greatest, int *field);
  void Font(EstiloLegenda &estilo, const QString &suffix);
  void Place(EstiloLegenda &estilo, const QString &suffix);
  void Ticks(EstiloLegenda &estilo, const QString &suffix);
  void Tick(QHBoxLayout *row, const QString &name, const QString &caption, bool *field);
  struct Colour {
    QString name;
    QString caption;
    QString hint;
    qint32 *field;
  };
  void Colours(const Colour &left, const Colour &right);
  void Changed();

  QGridLayout *m_grid;
  int m_row = 0;
  bool m_reading = false;
  std::vector<std::function<void()>> m_read; // each brings one control to its field
};

} // namespace tolmira
