#pragma once

#include "foundation/seams.h"
#include "themes/theme_record.h"

#include <QWidget>
#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;

namespace tolmira {

class ColourButton;
class FontBox;

// Text, filters and effects of a theme, or of a slide document, which has no filters. What the operator does is in the
// record before its signal comes.
class ThemeLook : public QWidget {
  Q_OBJECT

public:
  enum class Filters { With, Without };
  ThemeLook(TemaRecord &tema, UserPrompt &prompt, Filters filters, QWidget *parent);
  void Load();                       // the controls take the record's values; nothing is said
  void SetPictures(bool temImagens); // effects and movement of pictures count for this kind only

signals:
  void TextoMudou();
  void FiltrosMudaram();
  void EfeitoDaImagemMudou();
  void MovimentoMudou();
  void EntradaMudou();
  void SaidaMudou();

private:
  struct Scale {
    const char *name;
    QString caption;
    int least;
    int most;
    QString unit;
    std::function<int()> read;
    std::function<void(int)> write;
    void (ThemeLook::*changed)();
  };
  void MakeText(QGridLayout *grid);
  void MakeFilters(QGridLayout *grid);
  void MakeEffects(QGridLayout *grid);
  void Heading(QGridLayout *grid, const QString &text);
  void AddScale(QGridLayout *grid, int row, int column, const Scale &scale);
  void AddTextScale(QGridLayout *grid, int row, int column, const Scale &scale, QString TemaRecord::*field);
  QCheckBox *MakeTick(const char *name, const QString &caption, bool TemaRecord::*field, void (ThemeLook::*changed)());
  ColourButton *MakeColour(const char *name, const QString &spoken, QString TemaRecord::*field);
  QComboBox *MakeCombo(const char *name, const QString &spoken);

  TemaRecord &m_tema;
  UserPrompt &m_prompt;
  FontBox *m_fontes = nullptr;
  QComboBox *m_imagem = nullptr;
  QComboBox *m_imagemExtra = nullptr;
  QCheckBox *m_move = nullptr;
  QComboBox *m_texto = nullptr;
  QComboBox *m_textoExtra = nullptr;
  QComboBox *m_saida = nullptr;
  std::vector<std::function<void()>> m_load; // one for each control that only copies a value
};

} // namespace tolmira
