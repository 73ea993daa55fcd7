#include "themes/web_picture_adder.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "themes/small_copy.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace tolmira {

WebPictureAdder::WebPictureAdder(const AppFolder &app, WebClient &cliente, QObject *parent)
    : QObject(parent), m_app(app), m_cliente(cliente) {
  m_pool.setMaxThreadCount(1);
}

WebPictureAdder::~WebPictureAdder() {
  Desiste();
  m_pool.waitForDone();
}

QString WebPictureAdder::Temporario() const {
  return TempFolder() + QStringLiteral("\\imgtemp.jpg");
}

void WebPictureAdder::AdicionarImagem(const ImagemDaWeb &imagem) {
  if (Trabalhando())
    return;
  m_imagem = imagem;
  ++m_vez;
  m_passo = Passo::Download;
  QFile::remove(MapStoredPath(Temporario()).text()); // what an earlier run left is not what comes now
  emit Andou(0, -1);
  m_download = m_cliente.Download(
      {QUrl(imagem.endereco, QUrl::TolerantMode), Temporario(), LimiteBytes, false},
      [this](qint64 veio, qint64 total) { emit Andou(veio, total); }, [this](const FimDoDownload &) { Baixou(); });
}

void WebPictureAdder::Baixou() {
  m_download.reset();
  if (!FileExists(Temporario())) {
    Acaba({QStringLiteral("File not found."), {}, true});
    return;
  }
  m_passo = Passo::Exame;
  const QString path = MapStoredPath(Temporario()).text();
  m_pool.start([this, path, vez = m_vez, proprio = m_imagem.nome] {
    NomeDeImagem nome = NomeEmImagens(path, proprio);
    // Beyond its header and its end: what nobody has looked at yet is drawn once, at a small size.
    if (!nome.nome.isEmpty() && ReadPicture(path, [](const QSize &) { return SmallCopySize; }).image.isNull())
      nome = {};
    QMetaObject::invokeMethod(
        this, [this, vez, nome] { Examinou(vez, nome); }, Qt::QueuedConnection);
  });
}

void WebPictureAdder::Examinou(int vez, const NomeDeImagem &nome) {
  if (m_passo != Passo::Exame || vez != m_vez)
    return;
  if (nome.nome.isEmpty()) {
    Acaba({nome.sumiu ? QStringLiteral("File not found.") : tr("This file cannot be used as a picture."), {}, true});
    return;
  }
  m_nome = nome.nome;
  if (!FileExists(m_app.At(u"\\Images\\") + m_nome)) {
    Copia(m_nome);
    return;
  }
  m_passo = Passo::Pergunta;
  emit Pergunta(m_nome);
}

void WebPictureAdder::ImgDownCancel() {
  if (m_passo != Passo::Download)
    return;
  m_download.reset();
  Acaba({QStringLiteral("Download canceled."), {}, false});
}

void WebPictureAdder::ManterOsDois() {
  if (m_passo == Passo::Pergunta)
    Copia(NomeLivreEmImagens(m_app, m_nome));
}

void WebPictureAdder::Cancelar() {
  if (m_passo == Passo::Pergunta)
    Acaba({QStringLiteral("Canceled."), {}, false});
}

void WebPictureAdder::Desiste() {
  if (m_passo == Passo::Copia)
    return;
  m_download.reset();
  if (Trabalhando())
    QFile::remove(MapStoredPath(Temporario()).text());
  m_passo = Passo::Nenhum;
}

void WebPictureAdder::Copia(const QString &nome) {
  m_passo = Passo::Copia;
  m_pool.start([this, nome, path = MapStoredPath(Temporario()).text()] {
    const tolmira::Copia copia = CopiaParaImagens(m_app, path, nome);
    if (copia == tolmira::Copia::Feita)
      CriaMiniatura(m_app, nome, true);
    QMetaObject::invokeMethod(
        this, [this, nome, copia] { Copiou(nome, copia); }, Qt::QueuedConnection);
  });
}

void WebPictureAdder::Copiou(const QString &nome, tolmira::Copia copia) {
  switch (copia) {
  case tolmira::Copia::Feita:
    Acaba({QStringLiteral("Added successfully."), nome, false});
    break;
  case tolmira::Copia::SemImagem:
    Acaba({tr("This file cannot be used as a picture."), {}, true});
    break;
  case tolmira::Copia::SemLugar:
    Acaba({QStringLiteral("Não foi possível gravar o arquivo: ") + nome, {}, true});
    break;
  }
}

void WebPictureAdder::Acaba(const FimDaAdicao &fim) {
  m_passo = Passo::Nenhum;
  QFile::remove(MapStoredPath(Temporario()).text());
  emit Terminou(fim);
}

} // namespace tolmira
