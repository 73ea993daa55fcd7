#pragma once

#include "foundation/drafts.h"
#include "slides/slide_editor.h"
#include "slides/ui/slide_doors.h"
#include "themes/picture_file.h"
#include "themes/small_copy_loader.h"

#include <QHash>
#include <QWidget>
#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace tolmira {

class PictureStrip;
class SlideFields;
class SlidePreview;
class ThemeLook;

// The window in which a slide document is made. The preview follows each change; what is not saved is kept as a draft.
class FrmSlides : public QWidget {
  Q_OBJECT

public:
  FrmSlides(const SlideDoors &doors, EstadoSlides &estado);
  ~FrmSlides() override;

  bool LoadSlide(const QString &path); // SlideEditor::LoadSlide
  void LoadDraft(const QString &id, const SlideDraft &draft);
  // A new document of these pictures, in place of the new one that stands here.
  void TomaImagens(const QStringList &imagens, const QString &nome);

  QString Path() const { return m_editor.Path(); }
  // A question of its own stands open, under which it must not be closed.
  bool Ocupado() const { return m_asking; }
  void Open();
  SlidePreview *Preview() const { return m_preview; }

signals:
  void Salvou(const QString &oldName, const QString &newName);
  void Closed();

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void closeEvent(QCloseEvent *event) override;

private:
  void MakeTop(QVBoxLayout *rows);
  QWidget *MakeStrip();
  QWidget *MakeSlide();
  QWidget *MakeLook();
  void MakeBottom(QVBoxLayout *rows);
  void MakeKeys();

  void PedeImagem(int numero, const std::function<void(const QString &path)> &usa);
  void ImgAddImagem();
  bool Command4(); // saves; true when the document is on disk
  void SalvaModelo();
  bool PodeLargar(); // what is not saved was saved or given up

  void ShowAll(); // all controls take what the document holds
  void ShowStrip();
  void Mudou(); // the document has changed or another slide is chosen: preview, title, buttons, draft
  void Tell(const QString &text);
  QString Legenda(int index) const;
  void Desmarca(); // this window is open no more

  SlideDoors m_doors;
  EstadoSlides &m_estado;
  SlideEditor m_editor;
  DraftKeeper m_draft;
  SmallCopyLoader m_loader;
  QHash<QString, PictureImage> m_copias; // by stored path
  TemaRecord m_visual;                   // what the controls of the look write into
  QStringList m_naTira;                  // pictures and captions of the strip as it stands
  bool m_marcado = false;                // the state says "open" because of this window
  bool m_asking = false;
  bool m_loading = false; // the controls are being filled

  QLineEdit *m_txtNomeArquivo = nullptr;
  QPushButton *m_desfazer = nullptr;
  QPushButton *m_refazer = nullptr;
  PictureStrip *m_picPics = nullptr;
  QPushButton *m_remover = nullptr;
  QPushButton *m_trocar = nullptr;
  QPushButton *m_duplicar = nullptr;
  QComboBox *m_intervalo = nullptr;
  SlidePreview *m_preview = nullptr;
  SlideFields *m_slide = nullptr;
  ThemeLook *m_look = nullptr;
  QLabel *m_fonte = nullptr;
  QPushButton *m_modelo = nullptr;
  QPushButton *m_command4 = nullptr;
  QLabel *m_state = nullptr;
  std::unique_ptr<PeriodicTimer> m_timerSaida;
};

} // namespace tolmira
