#pragma once

#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "themes/picture_folder.h"
#include "themes/web_pictures.h"
#include "web/web_client.h"

#include <QObject>
#include <QThreadPool>
#include <memory>

namespace tolmira {

// How an adding went: the sentence for the operator, and what arrived.
struct FimDaAdicao {
  QString texto;
  QString nome;        // of the picture in the gallery; empty when none arrived
  bool falhou = false; // to be told in a box; giving up is no failure
};

// Fetches a picture of the web into the gallery, one at a time: the download, a look at what came, a question where the
// name is taken, the copy and its small copy. Reading and writing are done beside the interface thread.
class WebPictureAdder : public QObject {
  Q_OBJECT

public:
  static constexpr qint64 LimiteBytes = 64 * 1024 * 1024;

  WebPictureAdder(const AppFolder &app, WebClient &cliente, QObject *parent = nullptr);
  ~WebPictureAdder() override; // waits for the copy under way

  // Ends with Terminou, unless Desiste comes before. Not while Trabalhando.
  void AdicionarImagem(const ImagemDaWeb &imagem);
  bool Trabalhando() const { return m_passo != Passo::Nenhum; }
  bool Baixando() const { return m_passo == Passo::Download; }

  void ImgDownCancel(); // of the download
  void ManterOsDois();  // answers to Pergunta
  void Cancelar();
  void Desiste(); // of all but a copy under way; nothing is told

signals:
  void Andou(qint64 veio, qint64 total); // bytes; total -1 when it is not known
  void Pergunta(const QString &nome);    // a picture of that name is there
  void Terminou(const tolmira::FimDaAdicao &fim);

private:
  enum class Passo { Nenhum, Download, Exame, Pergunta, Copia };

  QString Temporario() const; // imgtemp.jpg, stored path
  void Baixou();
  void Examinou(int vez, const NomeDeImagem &nome);
  void Copia(const QString &nome);
  void Copiou(const QString &nome, tolmira::Copia copia);
  void Acaba(const FimDaAdicao &fim);

  const AppFolder m_app;
  WebClient &m_cliente;
  QThreadPool m_pool;
  ImagemDaWeb m_imagem;
  QString m_nome; // in the gallery
  Passo m_passo = Passo::Nenhum;
  int m_vez = 0; // of the adding, by which the look at a picture that was given up is known
  std::unique_ptr<WebTask> m_download;
};

} // namespace tolmira
