#pragma once

#include "themes/picture_file.h"
#include "themes/small_copy_loader.h"
#include "themes/theme_editor.h"
#include "themes/ui/theme_editor_doors.h"

#include <QHash>
#include <QWidget>
#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

namespace tolmira {

class ColourButton;
class PictureStrip;
class ThemeLook;
class ThemePreview;

// The window in which a theme is made. The preview follows each change; the theme itself changes when it is saved.
class FrmConfigTema : public QWidget {
  Q_OBJECT

public:
  explicit FrmConfigTema(const ThemeEditorDoors &doors);
  ~FrmConfigTema() override;

  void SetIndex(int n);
  int Index() const { return m_editor.Index(); }
  void Open();
  bool Ocupado() const { return m_saving; }
  bool Alterado() const { return m_editor.Alterado(); }
  // They were switched and stored elsewhere meanwhile.
  void MaiusculasMudaram(bool maiusculas);

  bool AdicionarAoTema(const QString &path);
  ThemePreview *Preview() const { return m_preview; }

signals:
  void Closed();

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void closeEvent(QCloseEvent *event) override;

private:
  void MakeLeft(QVBoxLayout *column);
  void MakeKinds(QVBoxLayout *column);
  QWidget *MakeColourPage();
  QWidget *MakePicturePage();
  QWidget *MakeVideoPage();
  void MakeButtons(QVBoxLayout *column);
  void WireLook();

  void LoadForm();
  void AtivaTipoSelecionado(const QString &tipo);
  void ShowKind();
  void ShowPictures();
  void PedeImagem();
  void PedeVideo();
  void Monta();
  void Mudou(); // the title and the sentences follow
  void ShowContrast();
  double LeastContrastOf() const;
  void Command4();
  void Command8();
  bool Salva();

  ThemeEditorDoors m_doors;
  ThemeEditor m_editor;
  SmallCopyLoader m_loader;
  QHash<QString, PictureImage> m_copias; // by bare name
  ThemePreview *m_preview = nullptr;
  ThemeLook *m_look = nullptr;
  QLineEdit *m_amostra = nullptr;
  QPushButton *m_checkTipo[3] = {};
  QStackedWidget *m_pages = nullptr;
  ColourButton *m_cor = nullptr;
  PictureStrip *m_picPics = nullptr;
  QWidget *m_picIntervalo = nullptr;
  QComboBox *m_intervalo = nullptr;
  QPushButton *m_command8 = nullptr;
  QPushButton *m_remove = nullptr;
  QLineEdit *m_textVideo = nullptr;
  QLabel *m_fonte = nullptr;
  QLabel *m_contraste = nullptr;
  std::unique_ptr<PeriodicTimer> m_timerContraste;
  std::unique_ptr<PeriodicTimer> m_timerSaida;
  bool m_saving = false;
};

} // namespace tolmira
