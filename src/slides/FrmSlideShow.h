#pragma once

#include "slides/show_editor.h"
#include "slides/ui/show_doors.h"

#include <QWidget>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace tolmira {

class PageObject;
class ValueSlider;
class WebPageHost;

// The editor of one slide show: its pictures in a page where they are put in order, its times, music and texts.
class FrmSlideShow : public QWidget {
  Q_OBJECT

public:
  explicit FrmSlideShow(const ShowDoors &doors);
  ~FrmSlideShow() override;

  bool CarregarSlide(const QString &path); // as the editor's
  void Open();
  QString Path() const { return m_editor.Path(); }
  // A question of its own stands open, under which it must not be closed.
  bool Ocupado() const { return m_asking; }
  PageObject *WV() const; // of the gallery
  // Real paths; of folders the pictures in them. What is no picture is left out and told of.
  void AdicionaArquivos(const QStringList &paths);

signals:
  void Salvou(const QString &nome);
  void Closed();

protected:
  void dragEnterEvent(QDragEnterEvent *event) override;
  void dropEvent(QDropEvent *event) override;
  bool eventFilter(QObject *watched, QEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void closeEvent(QCloseEvent *event) override;

private:
  void MakeTop(QBoxLayout *rows);
  QWidget *MakeGallery();
  QWidget *MakeSettings();
  void MakeTime(QGridLayout *grid, const char *name, const QString &caption, const QString &tip, int least,
                qint16 ShowEditor::*valor);
  QPlainTextEdit *MakeText(QBoxLayout *column, const char *name, const QString &caption, QString ShowEditor::*texto);

  void PedeArquivos();
  void PedeAudio();
  void Pede(AcaoDoShow acao);
  void Recebe(const RespostaDaGaleria &resposta);
  void carregaGaleria();
  void Acrescenta(const QStringList &imagens); // and brings the first of them into sight
  void Mudou(); // title, mark of changes, buttons
  void Diz(const QString &texto);

  ShowDoors m_doors;
  ShowEditor m_editor;
  bool m_asking = false;
  bool m_loading = false; // the controls are being filled

  QLineEdit *m_txtNome = nullptr;
  QPushButton *m_botaoFlat[2] = {}; // BotaoFlat1, BotaoFlat2
  WebPageHost *m_wv = nullptr;
  QLabel *m_estado = nullptr;
  struct Tempo {
    ValueSlider *slider;
    qint16 ShowEditor::*valor;
  };
  QList<Tempo> m_tempos;
  QLineEdit *m_audio = nullptr;
  QPlainTextEdit *m_textoInicio = nullptr;
  QPlainTextEdit *m_textoFim = nullptr;
};

} // namespace tolmira
