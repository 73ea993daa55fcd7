#pragma once

#include "foundation/app_folder.h"
#include "slides/office_converter.h"
#include "slides/page_pictures.h"
#include "slides/page_renderer.h"

#include <QObject>
#include <QQueue>
#include <QSize>
#include <QStringList>
#include <QThreadPool>
#include <atomic>
#include <memory>

class QTemporaryDir;

namespace tolmira {

// Makes pictures of the pages of a PDF or a presentation, of the projection's size and among the program's own, for
// slides to show. Other programs do the work (PageRenderer, OfficeConverter), copying is done beside the interface
// thread. Unless it ends well, nothing of it stays.
class DocumentImport : public QObject {
  Q_OBJECT

public:
  // Real paths; `escritorio` is empty where LibreOffice is not installed.
  struct Programas {
    QString paginas;
    QString escritorio;
  };
  static Programas ProgramasInstalados();

  // Of the toolkit's dialogue form.
  static QString Filtro();

  explicit DocumentImport(const AppFolder &app, QObject *parent = nullptr);
  ~DocumentImport() override; // as Para(), and waits

  // One at a time. `path` is real, as a file dialogue gives it. Without a size the pages get that of a usual projector.
  void Comeca(const QString &path, const QSize &telaPx, const Programas &programas);
  void DaSenha(const QString &senha); // the answer to PediuSenha
  void Para();                        // Parou comes later
  bool Trabalha() const { return m_fase != Fase::Nenhuma; }

  int prazoDaPaginaMs = 30'000;
  int prazoDoEscritorioMs = 5 * 60'000;
  qint64 maiorTotal = qint64(8) << 30; // bytes of all pages together

signals:
  void Convertendo(); // LibreOffice is at work and does not say how far it is
  void Andou(int prontas, int total);
  void PediuSenha(bool errada);
  // One of these three is last.
  void Terminou(const QStringList &imagens, const QString &nome); // stored paths; a name for the slides
  void Parou();
  void Falhou(const QString &frase);

private:
  enum class Fase { Nenhuma, Copia, Converte, Desenha, EsperaSenha, Desfaz };

  // A picture on its way from the temporary folder to the others; `posta` is the pool's, until it is done.
  struct Chegada {
    QString arquivo;
    QString nome;
    Posta posta = Posta::Estranha;
  };

  void CopiaParaConverter();
  void Converte(const QString &copia);
  void Desenha(const QByteArray &senha);
  void Chegou(int pagina, const QString &arquivo);
  void GuardaProxima();
  void Guardou();
  void TalvezTerminou();
  void NaoConverteu(OfficeConverter::Problema problema);
  void NaoDesenhou(PageRenderer::Problema problema);
  void Desfaz(const QString &frase); // empty: the operator stopped it
  void TalvezDesfez();
  QString FraseDe(PageRenderer::Problema problema) const;
  QString FraseDe(Posta posta) const;

  const AppFolder m_app;
  std::shared_ptr<QTemporaryDir> m_pasta; // stays until those who work in it have gone
  OfficeConverter m_escritorio;
  PageRenderer m_desenho;
  QThreadPool m_pool;
  std::shared_ptr<std::atomic<bool>> m_largue; // told to a copy under way; a new one for each import

  Fase m_fase = Fase::Nenhuma;
  Programas m_programas;
  QString m_path;
  QString m_pdf;
  QString m_titulo;
  QString m_serie;
  QSize m_tela;
  int m_total = 0;
  qint64 m_bytes = 0; // of the pages that were drawn
  bool m_deuSenha = false;
  bool m_desenhado = false; // the last page has been drawn
  bool m_ocupado = false;   // the pool works
  QQueue<Chegada> m_fila;   // drawn and not yet among the pictures
  std::shared_ptr<Chegada> m_chegando;
  QStringList m_guardadas;
  QString m_frase;
};

} // namespace tolmira
