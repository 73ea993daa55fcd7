#pragma once

#include "foundation/app_folder.h"
#include "web/side_threads.h"
#include "web/web_client.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>
#include <QUrl>
#include <functional>
#include <memory>

namespace tolmira {

// A line of Data\content.dat (docs/suggested-videos.md).
struct VideoSugerido {
  QString titulo;
  QUrl endereco;      // https, or this machine's own
  qint64 tamanho = 0; // bytes
  QByteArray sha256;  // 32 bytes
  QString arquivo;    // its name in <app>\Videos: the title with the extension of the address
};

struct CatalogoDeVideos {
  QList<VideoSugerido> videos;
  int recusadas = 0; // lines that are no video; blank ones and those that begin with ";" do not count
};
CatalogoDeVideos LeCatalogoDeVideos(QStringView texto);
CatalogoDeVideos LeCatalogoDeVideos(const AppFolder &app);

enum class EstadoDoVideo {
  NaoEsta,    // not there
  Parte,      // a stopped download left its beginning
  Conferindo, // a file of its name and size is there, and its sum is not known yet
  Esta,       // there, and the sum is right
  Outro,      // another file has its name: of another size or sum
};

// The videos of the catalogue in <app>\Videos: which are there, and one download at a time. Sums are taken beside this
// thread, each once as long as its file does not change.
class VideosSugeridos {
public:
  struct Ouvinte {
    std::function<void(const VideoSugerido &)> mudou;                           // its state
    std::function<void(const QString &fase, qint64 feito, qint64 total)> andou; // of the download
    std::function<void(const QString &frase)> acabou; // how the download ended; not after Para()
  };
  // Free bytes where a folder (real path) lies; -1 where that is not known.
  using EspacoLivre = std::function<qint64(const QString &pasta)>;

  VideosSugeridos(const AppFolder &app, WebClient &web, Ouvinte ouvinte, EspacoLivre livre = {});

  EstadoDoVideo Estado(const VideoSugerido &video) const;
  qint64 Veio(const VideoSugerido &video) const;     // bytes of the part that is there
  QString Caminho(const VideoSugerido &video) const; // stored path

  void Confere(const QList<VideoSugerido> &videos); // finds the sums that are not known yet
  void ParaDeConferir();

  // Goes on where a stopped one ended. The file takes its place when size and sum are right, and never that of another.
  void Baixa(const VideoSugerido &video);
  void Para(); // what came is kept
  bool Baixando() const { return m_tarefa != nullptr; }

private:
  void Pede(bool continua);
  void Veio(const FimDoDownload &fim);
  void ConfereChegada();
  // Of a file, empty when it cannot be read.
  [[nodiscard]] std::unique_ptr<WebTask> Soma(const QString &real, std::function<void(const QByteArray &soma)> pronto);
  void Termina(const QString &frase);
  void ConfereProximo();
  QString Real(const VideoSugerido &video) const;
  QString Chegada(const VideoSugerido &video) const; // real path where it comes to
  static QString Marca(const QString &real);         // tells a file that has changed from one that has not

  const AppFolder m_app;
  WebClient &m_web;
  Ouvinte m_ouvinte;
  EspacoLivre m_livre;
  VideoSugerido m_video; // that is being downloaded
  SideThreads m_fios;
  std::unique_ptr<WebTask> m_tarefa;
  QList<VideoSugerido> m_aConferir;
  std::unique_ptr<WebTask> m_conferencia;
  QHash<QString, QByteArray> m_somas; // by Marca
};

} // namespace tolmira
