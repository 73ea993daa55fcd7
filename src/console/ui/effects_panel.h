#pragma once

#include "console/ui/console_parts.h"

#include <QWidget>
#include <functional>

class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace tolmira {

class ValueSlider;

// Effects, font, background colour and picture filters of the theme in force.
class EffectsPanel : public QWidget {
  Q_OBJECT

public:
  EffectsPanel(ConsoleParts parts, QWidget *parent);
  void CarregaFontes(); // the installed fonts, once
  void ThemesChanged();

private:
  struct Filter {
    ValueSlider *slider;
    QLabel *value;
    QString unit;
  };
  struct Scale {
    const char *name;
    QString caption;
    int most;
    QString unit;
  };
  QGridLayout *MakeCombos();
  QGridLayout *MakeFilters();
  QComboBox *MakeCombo(const char *name, const QString &spoken, const std::function<void(const QString &)> &choose);
  QPushButton *MakeBox(const char *name, const char *drawing, const QString &tip,
                       const std::function<void(bool)> &tick);
  QLabel *Caption(const QString &text, const char *look);
  Filter MakeFilter(QGridLayout *grid, const Scale &scale, int row, int column, const std::function<void(int)> &move);
  void ShowFont();
  void ShowColour();

  ConsoleParts m_parts;
  QComboBox *m_fontes;
  QPushButton *m_cor;
  QComboBox *m_imagem;
  QComboBox *m_imagemExtra;
  QComboBox *m_texto;
  QComboBox *m_textoExtra;
  QPushButton *m_move;
  Filter m_brilho;
  Filter m_contraste;
  Filter m_saturacao;
  Filter m_desfoque;
};

} // namespace tolmira
