#pragma once

#include <QWidget>

#include "console/ui/console_parts.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QSlider;

namespace tolmira {

// Effects, font and picture filters of the active theme.
class EffectsPanel : public QWidget {
  Q_OBJECT

public:
  EffectsPanel(ConsoleParts parts, QWidget *parent);
  void CarregaFontes(); // the installed fonts, once
  void ThemesChanged();

private:
  void ShowFont();
  struct Filter {
    QSlider *slider;
    QLabel *value;
    QString unit;
  };
  struct Scale {
    const char *name;
    QString caption;
    int most;
    QString unit;
  };
  QComboBox *MakeCombo(const char *name, const QString &spoken);
  Filter MakeFilter(QGridLayout *grid, const Scale &scale, int row, int column);

  ConsoleParts m_parts;
  QComboBox *m_fontes;
  QComboBox *m_imagem;
  QComboBox *m_imagemExtra;
  QComboBox *m_texto;
  QComboBox *m_textoExtra;
  Filter m_brilho;
  Filter m_contraste;
  Filter m_saturacao;
  Filter m_desfoque;
};

} // namespace tolmira
