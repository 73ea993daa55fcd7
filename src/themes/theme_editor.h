#pragma once

#include "foundation/app_folder.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "themes/theme_record.h"

#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>
#include <functional>

namespace tolmira {

class ThemeStore;

// The kinds of background, as `Tipo` names them.
inline const QString TipoCorDeFundo = QStringLiteral("CorDeFundo");
inline const QString TipoImagem = QStringLiteral("Imagem");
inline const QString TipoVideo = QStringLiteral("Video");

// One theme under change. It works on a copy of the record: neither the table nor the file knows of it before
// SalvarDados.
class ThemeEditor {
public:
  // All of it outlives the editor. `tilePx` is the size of the pictures on the console's tiles.
  struct Parts {
    const IniStore &store;
    ThemeStore &loja;
    TabelaTemas &temas;
    UserPrompt &prompt;
    Yielder &yielder;
    QSize tilePx;
  };
  explicit ThemeEditor(const Parts &parts) : m_parts(parts) {}

  void SetIndex(int n); // 1 to 16; takes the working copy from the table
  int Index() const { return m_n; }
  QString Titulo() const;

  // The working copy; the window writes its looks and effects straight into it. Kind, pictures, video and interval have
  // their own ways below.
  TemaRecord tema;
  bool Alterado() const;
  // The theme's capitals were switched and stored elsewhere meanwhile.
  void MaiusculasMudaram(bool maiusculas);

  QString textoDoOperador; // for the preview; not part of the theme
  QString GetTextoTema() const;

  // The path box of the video; what it says counts for a theme of that kind when it is saved.
  const QString &TextVideo() const { return m_textVideo; }
  void DefineTextVideo(const QString &path) { m_textVideo = path; }

  // True when the page has to be built anew for it. A kind whose files are missing is chosen all the same, and waits
  // for them.
  bool CheckTipo(const QString &tipo);

  QStringList Imagens() const; // full stored paths
  bool PicIntervaloVisible() const;
  // Position in "None", "10 sec", "15 sec", "20 sec", "30 sec", "60 sec".
  int PicIntervalo() const;
  void DefinePicIntervalo(int posicao);

  // `path` is a real or a stored path. False, with a message when there is a file, if nothing was added.
  bool AdicionarAoTema(const QString &path);
  void RemoveImagem(int posicao);             // from 1
  void MoveImagem(int posicao, int paraOnde); // both from 1
  bool CommandVideo();                        // asks for a video; true when the theme has it now

  int Imagem() const { return m_imagem; } // the picture on show in the preview, from 1
  void DefineImagem(int posicao) { m_imagem = posicao; }
  int ProximaImagem(); // makes the next one that, behind the last one the first; 0 without pictures

  // Checks and writes, all keys in one step. False after a message: the file is as it was, and so is the table.
  // `retrato` gives what the preview shows.
  bool SalvarDados(const std::function<QImage()> &retrato);

private:
  bool VideoExiste() const;
  void AtualizaImagens(); // leaves out what has gone
  bool GravaArquivo(const QList<std::pair<QString, QString>> &chaves);
  void GravaMiniatura(const QImage &retrato);
  void Diz(const QString &texto);

  Parts m_parts;
  int m_n = 0;
  TemaRecord m_antes;
  QString m_textVideo;
  QString m_textVideoAntes;
  int m_imagem = 1;
};

} // namespace tolmira
