#include "slides/document_import.h"

#include "foundation/real_path.h"
#include "slides/page_protocol.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <filesystem>
#include <utility>

namespace tolmira {

namespace {

constexpr qint64 Pedaco = 1 << 20;
constexpr QSize TelaSemProjecao{1920, 1080};
constexpr quint64 ReservaDoDisco = 128 << 20; // bytes that an import leaves to everything else

bool EhApresentacao(const QString &path) {
  static const QStringList extensoes{QStringLiteral("pptx"), QStringLiteral("ppt"), QStringLiteral("ppsx"),
                                     QStringLiteral("pps"), QStringLiteral("odp")};
  return extensoes.contains(QFileInfo(path).suffix().toLower());
}

// A folder that cannot be asked has room: what is wrong with it shows when it is written.
bool TemLugar(const QString &pasta) {
  std::error_code erro;
  const std::filesystem::space_info espaco = std::filesystem::space(QFile::encodeName(pasta).toStdString(), erro);
  return erro || espaco.available >= ReservaDoDisco;
}

// False when it was not copied whole.
bool Copia(const QString &de, const QString &para, const std::atomic<bool> &largue) {
  QFile origem(de);
  QFile destino(para);
  if (!origem.open(QIODevice::ReadOnly) || !destino.open(QIODevice::WriteOnly))
    return false;
  while (!origem.atEnd()) {
    const QByteArray pedaco = origem.read(Pedaco);
    if (largue || pedaco.isEmpty() || destino.write(pedaco) != pedaco.size())
      return false;
  }
  return destino.flush();
}

} // namespace

DocumentImport::Programas DocumentImport::ProgramasInstalados() {
  return {QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("tolmira-pages")),
          OfficeConverter::Programa()};
}

QString DocumentImport::Filtro() {
  return tr("Documents") + QStringLiteral(" (*.pdf *.pptx *.ppt *.ppsx *.pps *.odp)");
}

DocumentImport::DocumentImport(const AppFolder &app, QObject *parent) : QObject(parent), m_app(app) {
  m_pool.setMaxThreadCount(1);
  connect(&m_escritorio, &OfficeConverter::Terminou, this, [this](const QString &pdf) {
    if (m_fase != Fase::Converte)
      return TalvezDesfez();
    m_pdf = pdf;
    Desenha({});
  });
  connect(&m_escritorio, &OfficeConverter::Falhou, this, &DocumentImport::NaoConverteu);
  connect(&m_desenho, &PageRenderer::Contou, this, [this](int paginas) {
    if (m_fase != Fase::Desenha)
      return;
    m_total = paginas;
    emit Andou(0, m_total);
  });
  connect(&m_desenho, &PageRenderer::Fez, this, &DocumentImport::Chegou);
  connect(&m_desenho, &PageRenderer::Terminou, this, [this] {
    m_desenhado = true;
    if (m_fase == Fase::Desfaz)
      TalvezDesfez();
    else
      TalvezTerminou();
  });
  connect(&m_desenho, &PageRenderer::Falhou, this, &DocumentImport::NaoDesenhou);
}

DocumentImport::~DocumentImport() {
  if (m_largue)
    *m_largue = true;
  m_pool.waitForDone();
  if (m_chegando && m_chegando->posta == Posta::Sim)
    m_guardadas.append(m_chegando->nome);
  RetiraPaginas(m_app, m_guardadas);
}

void DocumentImport::Comeca(const QString &path, const QSize &telaPx, const Programas &programas) {
  if (Trabalha())
    return;
  m_path = path;
  m_programas = programas;
  m_tela = telaPx.isEmpty() ? TelaSemProjecao : telaPx.boundedTo({paginas::MaiorLado, paginas::MaiorLado});
  m_total = 0;
  m_bytes = 0;
  m_deuSenha = m_desenhado = false;
  m_guardadas.clear();
  m_largue = std::make_shared<std::atomic<bool>>(false);
  m_titulo = TituloDoDocumento(path);
  m_serie = NomeDaSerie(m_app, m_titulo);
  m_pasta = std::make_shared<QTemporaryDir>(QDir(QDir::tempPath()).filePath(QStringLiteral("tolmira-pages-XXXXXX")));
  if (!m_pasta->isValid())
    return Desfaz(tr("The temporary folder cannot be written. Is the disk full?"));
  if (!QFileInfo(path).isFile() || !QFile(path).open(QIODevice::ReadOnly))
    return Desfaz(tr("The file cannot be read. Is it still where it was?"));
  if (EhApresentacao(path))
    return CopiaParaConverter();
  m_pdf = QFileInfo(path).absoluteFilePath();
  Desenha({});
}

// LibreOffice gets a copy: it leaves a lock beside what it reads, and the name must not be mistaken for an option.
void DocumentImport::CopiaParaConverter() {
  if (m_programas.escritorio.isEmpty())
    return Desfaz(tr("LibreOffice turns presentations into pages, and it is not installed here. Install the package "
                     "libreoffice-impress, or save the presentation as a PDF and import that."));
  m_fase = Fase::Copia;
  m_ocupado = true;
  emit Convertendo();
  const QString copia = m_pasta->filePath(u"document." + QFileInfo(m_path).suffix().toLower());
  m_pool.start([this, de = m_path, copia, largue = m_largue] {
    const bool copiada = Copia(de, copia, *largue);
    QMetaObject::invokeMethod(
        this,
        [this, copia, copiada] {
          m_ocupado = false;
          if (m_fase == Fase::Desfaz)
            TalvezDesfez();
          else if (copiada)
            Converte(copia);
          else
            Desfaz(tr("The presentation could not be copied to the temporary folder. Is the disk full?"));
        },
        Qt::QueuedConnection);
  });
}

void DocumentImport::Converte(const QString &copia) {
  m_fase = Fase::Converte;
  m_escritorio.prazoMs = prazoDoEscritorioMs;
  m_escritorio.Comeca(m_programas.escritorio, copia, m_pasta->path());
}

void DocumentImport::Desenha(const QByteArray &senha) {
  m_fase = Fase::Desenha;
  PageRenderer::Pedido pedido;
  pedido.programa = m_programas.paginas;
  pedido.arquivo = m_pdf;
  pedido.pasta = m_pasta->path();
  pedido.tela = m_tela;
  pedido.senha = senha;
  pedido.prazoMs = prazoDaPaginaMs;
  m_desenho.Comeca(pedido);
}

void DocumentImport::DaSenha(const QString &senha) {
  if (m_fase != Fase::EsperaSenha)
    return;
  m_deuSenha = true;
  Desenha(senha.toUtf8().left(paginas::MaiorSenha));
}

void DocumentImport::Para() {
  if (Trabalha() && m_fase != Fase::Desfaz)
    Desfaz({});
}

void DocumentImport::Chegou(int pagina, const QString &arquivo) {
  if (m_fase != Fase::Desenha)
    return;
  m_bytes += QFileInfo(arquivo).size();
  if (m_bytes > maiorTotal)
    return Desfaz(
        tr("The pages of this document take too much room. Save the pages that you need as a PDF of their own."));
  if (!TemLugar(m_pasta->path()) || !TemLugar(MapStoredPath(m_app.At(u"\\Images")).text()))
    return Desfaz(tr("The disk is nearly full. Make room on it, then import the document again."));
  m_fila.enqueue({arquivo, NomeDaPagina(m_serie, pagina, m_total, QFileInfo(arquivo).suffix())});
  GuardaProxima();
}

void DocumentImport::GuardaProxima() {
  if (m_ocupado || m_fila.isEmpty())
    return;
  m_ocupado = true;
  m_chegando = std::make_shared<Chegada>(m_fila.dequeue());
  m_pool.start([this, pagina = m_chegando, app = m_app, tela = m_tela] {
    pagina->posta = PoePagina(app, pagina->arquivo, pagina->nome, tela);
    QFile::remove(pagina->arquivo);
    QMetaObject::invokeMethod(this, &DocumentImport::Guardou, Qt::QueuedConnection);
  });
}

void DocumentImport::Guardou() {
  m_ocupado = false;
  const std::shared_ptr<Chegada> pagina = std::exchange(m_chegando, nullptr);
  if (pagina->posta == Posta::Sim)
    m_guardadas.append(pagina->nome);
  if (m_fase == Fase::Desfaz)
    return TalvezDesfez();
  if (pagina->posta != Posta::Sim)
    return Desfaz(FraseDe(pagina->posta));
  emit Andou(static_cast<int>(m_guardadas.size()), m_total);
  GuardaProxima();
  TalvezTerminou();
}

QString DocumentImport::FraseDe(Posta posta) const {
  if (posta == Posta::SemLugar)
    return tr("The pages could not be written to the images folder. Is the disk full?");
  if (posta == Posta::Tomada)
    return tr("A picture with the name of a page came into the images folder meanwhile. Import the document again.");
  return FraseDe(PageRenderer::Problema::Quebrado);
}

void DocumentImport::TalvezTerminou() {
  if (m_fase != Fase::Desenha || !m_desenhado || m_guardadas.size() != m_total)
    return;
  m_fase = Fase::Nenhuma;
  m_pool.start([pasta = std::exchange(m_pasta, nullptr)] { pasta->remove(); });
  emit Terminou(CaminhosDasPaginas(m_app, std::exchange(m_guardadas, {})), m_titulo);
}

void DocumentImport::NaoConverteu(OfficeConverter::Problema problema) {
  using Problema = OfficeConverter::Problema;
  if (m_fase == Fase::Desfaz)
    return TalvezDesfez();
  switch (problema) {
  case Problema::SemPrograma:
    return Desfaz(tr("LibreOffice could not be started. Save the presentation as a PDF and import that."));
  case Problema::Demorou:
    return Desfaz(tr("LibreOffice took too long over this presentation. Save it as a PDF and import that."));
  case Problema::Disco:
    return Desfaz(tr("The temporary folder cannot be written. Is the disk full?"));
  case Problema::Recusou:
    break;
  }
  Desfaz(tr("LibreOffice could not read this presentation. It may be damaged or need a password, or the package "
            "libreoffice-impress is missing. If you can open it elsewhere, save it as a PDF and import that."));
}

void DocumentImport::NaoDesenhou(PageRenderer::Problema problema) {
  if (m_fase == Fase::Desfaz)
    return TalvezDesfez();
  if (problema != PageRenderer::Problema::FaltaSenha)
    return Desfaz(FraseDe(problema));
  m_fase = Fase::EsperaSenha;
  emit PediuSenha(m_deuSenha);
}

QString DocumentImport::FraseDe(PageRenderer::Problema problema) const {
  using Problema = PageRenderer::Problema;
  switch (problema) {
  case Problema::SemPrograma:
    return tr("The program tolmira-pages, which draws the pages, is missing. Install Tolmira again.");
  case Problema::Vazio:
    return tr("This document has no pages.");
  case Problema::Demais:
    return tr("This document has more than %1 pages. Save the pages that you need as a PDF of their own.")
        .arg(QLocale(QLocale::English).toString(paginas::MaisPaginas));
  case Problema::Demorou:
    if (m_total == 0)
      return tr("This document takes too long to open.");
    return tr("Page %1 takes too long to draw.").arg(m_guardadas.size() + m_fila.size() + (m_ocupado ? 1 : 0) + 1);
  case Problema::Disco:
    return tr("The pages could not be written to the temporary folder. Is the disk full?");
  case Problema::FaltaSenha:
  case Problema::Quebrado:
    break;
  }
  return tr(
      "This file is no PDF, or it is damaged. If another program can open it, save it from there as a PDF again.");
}

void DocumentImport::Desfaz(const QString &frase) {
  m_fase = Fase::Desfaz;
  m_frase = frase;
  m_fila.clear();
  *m_largue = true;
  m_escritorio.Para();
  m_desenho.Para();
  // Never from inside Comeca: who calls it is not ready for the end yet.
  QMetaObject::invokeMethod(this, &DocumentImport::TalvezDesfez, Qt::QueuedConnection);
}

// Takes everything away when nobody works on it any more.
void DocumentImport::TalvezDesfez() {
  if (m_fase != Fase::Desfaz || m_ocupado || m_escritorio.Roda() || m_desenho.Roda())
    return;
  m_ocupado = true;
  m_pool.start([this, app = m_app, nomes = std::exchange(m_guardadas, {}), pasta = std::exchange(m_pasta, nullptr)] {
    RetiraPaginas(app, nomes);
    if (pasta)
      pasta->remove();
    QMetaObject::invokeMethod(
        this,
        [this] {
          m_ocupado = false;
          m_fase = Fase::Nenhuma;
          const QString frase = std::exchange(m_frase, {});
          if (frase.isEmpty())
            emit Parou();
          else
            emit Falhou(frase);
        },
        Qt::QueuedConnection);
  });
}

} // namespace tolmira
