#include "media/suggested_videos.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "foundation/video_folder.h"
#include "web/cut_text.h"
#include "web/later.h"
#include "web/secure_address.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QObject>
#include <QSet>
#include <atomic>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace tolmira {

namespace {

constexpr qsizetype MaiorNumero = 500; // of videos
constexpr qsizetype MaiorLinha = 4000;
constexpr qsizetype MaiorTitulo = 150;
constexpr qint64 MaiorVideo = qint64(64) << 30;   // bytes
constexpr qint64 LeituraPorVez = qint64(1) << 20; // bytes
constexpr qint64 Reserva = qint64(256) << 20;     // bytes that stay free on the disk
constexpr qsizetype BytesDaSoma = 32;

const QString Videos = QStringLiteral("\\Videos\\");

std::optional<VideoSugerido> LeLinha(QStringView linha) {
  if (linha.size() > MaiorLinha)
    return std::nullopt;
  const QList<QStringView> campos = linha.split(u"|#|");
  if (campos.size() != 4)
    return std::nullopt;
  VideoSugerido video;
  video.titulo = campos[0].trimmed().left(MaiorTitulo).toString();
  video.endereco = QUrl(campos[1].trimmed().toString(), QUrl::StrictMode);
  bool numero = false;
  video.tamanho = campos[2].trimmed().toLongLong(&numero);
  const QByteArray soma = campos[3].trimmed().toLatin1().toLower();
  video.sha256 = QByteArray::fromHex(soma);
  if (video.titulo.isEmpty() || !EnderecoSeguro(video.endereco) || !numero || video.tamanho <= 0 ||
      video.tamanho > MaiorVideo || video.sha256.size() != BytesDaSoma || video.sha256.toHex() != soma)
    return std::nullopt;
  // Nothing but a video comes into the folder, whatever an address says.
  const QString extensao = ExtensionOf(video.endereco.path()).toLower();
  if (extensao.isEmpty() || !QString(QString(FiltroDeVideos).replace(u')', u' ')).contains(u"*." + extensao + u' '))
    return std::nullopt;
  QString nome = video.titulo;
  nome.replace(u'/', u' ').replace(u'\\', u' ');
  video.arquivo = NomeSeguro(nome + u'.' + extensao);
  // A title of nothing but dots and blanks leaves the extension alone.
  if (!video.arquivo.endsWith(u'.' + extensao) || video.arquivo.size() <= extensao.size() + 1)
    return std::nullopt;
  return video;
}

// The sum of a file; empty when it could not be read to its end, or when it was told to stop.
QByteArray SomaDe(const QString &real, const std::atomic<bool> &para) {
  QFile arquivo(real);
  if (!arquivo.open(QIODevice::ReadOnly))
    return {};
  QCryptographicHash soma(QCryptographicHash::Sha256);
  QByteArray bloco(LeituraPorVez, Qt::Uninitialized);
  while (!para) {
    const qint64 veio = arquivo.read(bloco.data(), bloco.size());
    if (veio < 0)
      return {};
    if (veio == 0)
      return soma.result();
    soma.addData(QByteArrayView(bloco.constData(), veio));
  }
  return {};
}

// Asks for that folder alone: the toolkit's own way asks every disk there is, also one that does not answer.
qint64 EspacoDoDisco(const QString &pasta) {
  std::error_code erro;
  const std::filesystem::space_info espaco = std::filesystem::space(QFile::encodeName(pasta).toStdString(), erro);
  return erro ? -1 : static_cast<qint64>(espaco.available);
}

} // namespace

CatalogoDeVideos LeCatalogoDeVideos(QStringView texto) {
  CatalogoDeVideos catalogo;
  QSet<QString> nomes;
  for (const QStringView inteira : texto.tokenize(u'\n')) {
    const QStringView linha = inteira.trimmed();
    if (linha.isEmpty() || linha.startsWith(u';'))
      continue;
    const std::optional<VideoSugerido> video = catalogo.videos.size() < MaiorNumero ? LeLinha(linha) : std::nullopt;
    if (!video || nomes.contains(video->arquivo.toLower())) {
      ++catalogo.recusadas;
      continue;
    }
    nomes.insert(video->arquivo.toLower());
    catalogo.videos.append(*video);
  }
  return catalogo;
}

CatalogoDeVideos LeCatalogoDeVideos(const AppFolder &app) {
  return LeCatalogoDeVideos(QStringView(ReadWholeFile(app.At(u"\\Data\\content.dat"))));
}

VideosSugeridos::VideosSugeridos(const AppFolder &app, WebClient &web, Ouvinte ouvinte, EspacoLivre livre)
    : m_app(app), m_web(web), m_ouvinte(std::move(ouvinte)), m_livre(livre ? std::move(livre) : EspacoDoDisco) {}

QString VideosSugeridos::Caminho(const VideoSugerido &video) const {
  return m_app.At(Videos) + video.arquivo;
}

QString VideosSugeridos::Real(const VideoSugerido &video) const {
  return MapStoredPath(Caminho(video)).text();
}

// Beside its place until size and sum are known, so that nobody shows a half or a foreign one.
QString VideosSugeridos::Chegada(const VideoSugerido &video) const {
  return Real(video) + u".download";
}

QString VideosSugeridos::Marca(const QString &real) {
  const QFileInfo info(real);
  return real + u'|' + QString::number(info.size()) + u'|' + QString::number(info.lastModified().toMSecsSinceEpoch());
}

EstadoDoVideo VideosSugeridos::Estado(const VideoSugerido &video) const {
  const QFileInfo info(Real(video));
  if (!info.exists())
    return Veio(video) > 0 ? EstadoDoVideo::Parte : EstadoDoVideo::NaoEsta;
  if (!info.isFile() || info.size() != video.tamanho)
    return EstadoDoVideo::Outro;
  const auto soma = m_somas.constFind(Marca(info.filePath()));
  if (soma == m_somas.cend())
    return EstadoDoVideo::Conferindo;
  return *soma == video.sha256 ? EstadoDoVideo::Esta : EstadoDoVideo::Outro;
}

qint64 VideosSugeridos::Veio(const VideoSugerido &video) const {
  const QFileInfo inteiro(Chegada(video));
  return inteiro.exists() ? inteiro.size() : QFileInfo(Chegada(video) + u".part").size();
}

void VideosSugeridos::Confere(const QList<VideoSugerido> &videos) {
  m_conferencia.reset();
  m_aConferir = videos;
  ConfereProximo();
}

void VideosSugeridos::ParaDeConferir() {
  m_aConferir.clear();
  m_conferencia.reset();
}

void VideosSugeridos::ConfereProximo() {
  while (!m_aConferir.isEmpty()) {
    const VideoSugerido video = m_aConferir.takeFirst();
    if (Estado(video) != EstadoDoVideo::Conferindo)
      continue;
    const QString real = Real(video);
    const QString marca = Marca(real);
    m_conferencia = Soma(real, [this, video, marca](const QByteArray &soma) {
      m_somas.insert(marca, soma);
      m_ouvinte.mudou(video);
      ConfereProximo();
    });
    return;
  }
  m_conferencia.reset();
}

void VideosSugeridos::Baixa(const VideoSugerido &video) {
  Para();
  m_video = video;
  const QString pasta = QFileInfo(Real(video)).path();
  QDir().mkpath(pasta);
  const qint64 livre = m_livre(pasta);
  const qint64 falta = video.tamanho - Veio(video);
  const auto recusa = [this](const QString &frase) { m_tarefa = ContaDepois([this, frase] { Termina(frase); }); };
  const EstadoDoVideo estado = Estado(video);
  if (estado != EstadoDoVideo::NaoEsta && estado != EstadoDoVideo::Parte) {
    recusa(QObject::tr("Another file in the folder Videos is called %1. It was left as it is.").arg(video.arquivo));
  } else if (livre >= 0 && livre - Reserva < falta) {
    const QLocale locale;
    recusa(QObject::tr("There is no room for it: %1 are needed, and %2 are free on that disk.")
               .arg(locale.formattedDataSize(falta + Reserva), locale.formattedDataSize(livre)));
  } else if (QFileInfo(Chegada(video)).isFile()) {
    ConfereChegada(); // the program ended before it was looked at
  } else {
    Pede(true);
  }
}

void VideosSugeridos::Pede(bool continua) {
  PedidoDeDownload pedido;
  pedido.endereco = m_video.endereco;
  pedido.arquivo = Caminho(m_video) + u".download";
  pedido.limiteBytes = m_video.tamanho;
  pedido.continua = continua;
  const QString fase = QObject::tr("Downloading: %1").arg(m_video.titulo);
  m_ouvinte.andou(fase, Veio(m_video), m_video.tamanho);
  m_tarefa = m_web.Download(
      pedido, [this, fase](qint64 veio, qint64) { m_ouvinte.andou(fase, veio, m_video.tamanho); },
      [this](const FimDoDownload &fim) { Veio(fim); });
}

void VideosSugeridos::Veio(const FimDoDownload &fim) {
  if (fim.inteiro && (fim.porHttps || m_video.endereco.scheme() == u"http")) {
    ConfereChegada();
  } else {
    if (fim.inteiro)
      QFile::remove(Chegada(m_video));
    Termina(QObject::tr("%1 could not be downloaded.").arg(m_video.titulo));
  }
}

void VideosSugeridos::ConfereChegada() {
  const QString chegada = Chegada(m_video);
  m_ouvinte.andou(QObject::tr("Checking: %1").arg(m_video.titulo), 0, 0);
  m_tarefa = Soma(chegada, [this, chegada](const QByteArray &soma) {
    const QString real = Real(m_video);
    if (QFileInfo(chegada).size() != m_video.tamanho || soma != m_video.sha256) {
      QFile::remove(chegada);
      Termina(QObject::tr("%1 is not what the list says: its size or its sum is wrong. The file was removed.")
                  .arg(m_video.titulo));
    } else if (!QFile::rename(chegada, real)) { // which replaces nothing
      Termina(QObject::tr("%1 could not be put into the folder Videos.").arg(m_video.titulo));
    } else {
      m_somas.insert(Marca(real), soma);
      Termina(QObject::tr("%1 is there.").arg(m_video.titulo));
    }
  });
}

std::unique_ptr<WebTask> VideosSugeridos::Soma(const QString &real, std::function<void(const QByteArray &)> pronto) {
  return m_fios.Comeca([real, pronto = std::move(pronto)](const std::atomic<bool> &parar,
                                                          const SideThreads::Avisa &) -> SideThreads::Relato {
    return [pronto, soma = SomaDe(real, parar)](SideThreads::Ouvintes &) { pronto(soma); };
  });
}

void VideosSugeridos::Termina(const QString &frase) {
  m_tarefa.reset();
  m_ouvinte.mudou(m_video);
  m_ouvinte.acabou(frase);
}

void VideosSugeridos::Para() {
  m_tarefa.reset();
}

} // namespace tolmira
