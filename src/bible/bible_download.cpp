#include "bible/bible_download.h"

#include "bible/books.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "foundation/trash.h"
#include "web/cut_text.h"
#include "web/later.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QSet>
#include <utility>

namespace tolmira {

namespace {

constexpr qsizetype MaiorNumero = 500; // of versions in a list
constexpr qsizetype MaiorNome = 60;
constexpr qsizetype MaiorLinha = 4000;
constexpr qsizetype MaiorTitulo = 200;

bool TemLista(const QString &resposta) {
  return resposta.contains(u"[Lista]");
}

bool EhVersao(const VersionText &texto, Testamento testamento) {
  const bool velho = testamento == Testamento::Velho;
  for (int livro = velho ? 1 : OldTestamentBooks + 1; livro <= (velho ? OldTestamentBooks : BookCount); ++livro)
    if (!texto.Chapters(livro).isEmpty())
      return true;
  return false;
}

std::optional<VersaoOferecida> LeLinha(QStringView linha) {
  if (linha.size() > MaiorLinha)
    return std::nullopt;
  const QList<QStringView> campos = linha.split(u"|:|");
  if (campos.size() < 4)
    return std::nullopt;
  const VersaoOferecida versao{campos[3].trimmed().toString(), campos[2].toString().simplified().left(MaiorTitulo),
                               campos[1].trimmed().toString(), QString()};
  return NomeDeVersaoServe(versao.nome) ? std::optional(versao) : std::nullopt;
}

QString PastaDasBiblias(const AppFolder &app) {
  return app.At(u"\\Bible\\");
}

class Procurando : public WebTask {
public:
  Procurando(WebClient &web, QUrl endereco, BuscaDeBiblias::Pronto pronto)
      : m_web(web), m_endereco(std::move(endereco)), m_pronto(std::move(pronto)) {
    m_tarefa = m_web.FetchBy(1, m_endereco, [this](const QString &resposta) {
      if (TemLista(resposta))
        Diz(resposta);
      else
        PeloControle();
    });
  }
  ~Procurando() override { QFile::remove(MapStoredPath(m_rascunho).text()); }

private:
  void PeloControle() {
    PedidoDeDownload pedido;
    pedido.endereco = m_endereco;
    pedido.arquivo = m_rascunho;
    pedido.limiteBytes = LimiteDePagina;
    m_tarefa = m_web.Download(pedido, {}, [this](const FimDoDownload &fim) {
      const QString resposta = fim.inteiro ? ReadWholeFile(m_rascunho) : QString();
      if (TemLista(resposta))
        Diz(resposta);
      else
        m_tarefa = m_web.FetchBy(2, m_endereco, [this](const QString &ultima) { Diz(ultima); });
    });
  }

  void Diz(const QString &resposta) {
    const BuscaDeBiblias::Pronto pronto = std::move(m_pronto); // it may drop this
    pronto(LeListaDeBiblias(resposta));
  }

  WebClient &m_web;
  QUrl m_endereco;
  QString m_rascunho = TempFolder() + QStringLiteral("\\temp01.dat");
  BuscaDeBiblias::Pronto m_pronto;
  std::unique_ptr<WebTask> m_tarefa;
};

} // namespace

bool NomeDeVersaoServe(const QString &nome) {
  if (nome.isEmpty() || nome.size() > MaiorNome || NomeSeguro(nome) != nome)
    return false;
  for (const Testamento testamento : {Testamento::Velho, Testamento::Novo})
    if (NomeSeguro(ArquivoDaVersao(nome, testamento)) != ArquivoDaVersao(nome, testamento))
      return false;
  return !nome.contains(u"old_", Qt::CaseInsensitive) && !nome.contains(u".txt", Qt::CaseInsensitive);
}

std::optional<ListaDeBiblias> LeListaDeBiblias(QStringView resposta) {
  if (!resposta.contains(u"[Lista]"))
    return std::nullopt;
  ListaDeBiblias lista;
  QSet<QString> nomes;
  for (const QStringView linha : resposta.tokenize(u"<br>")) {
    if (!linha.contains(u"url|:|"))
      continue;
    const std::optional<VersaoOferecida> versao = lista.versoes.size() < MaiorNumero ? LeLinha(linha) : std::nullopt;
    if (!versao || nomes.contains(versao->nome.toLower())) {
      ++lista.recusadas;
      continue;
    }
    nomes.insert(versao->nome.toLower());
    lista.versoes.append(*versao);
  }
  return lista;
}

QUrl EnderecoDoArquivo(const QUrl &lista, const VersaoOferecida &versao, Testamento testamento) {
  QUrl pasta = lista.resolved(QUrl(versao.endereco, QUrl::TolerantMode));
  pasta.setQuery(QString());
  pasta.setFragment(QString());
  QString texto = pasta.toString(QUrl::FullyEncoded);
  while (texto.endsWith(u'/') || texto.endsWith(u'?'))
    texto.chop(1);
  const QUrl arquivo(texto + u'/' +
                         QString::fromLatin1(QUrl::toPercentEncoding(ArquivoDaVersao(versao.nome, testamento))),
                     QUrl::StrictMode);
  const bool web = arquivo.scheme() == u"https" || (arquivo.scheme() == u"http" && lista.scheme() != u"https");
  return web && arquivo.isValid() && !arquivo.host().isEmpty() && arquivo.userInfo().isEmpty() ? arquivo : QUrl();
}

ArquivosNaPasta OlhaPasta(const AppFolder &app, const QString &nomeCurto) {
  return {FileExists(PastaDasBiblias(app) + ArquivoDaVersao(nomeCurto, Testamento::Velho)),
          FileExists(PastaDasBiblias(app) + ArquivoDaVersao(nomeCurto, Testamento::Novo))};
}

QStringList VersoesNaPasta(const BibleStore &biblia) {
  QStringList nomes;
  for (const BibleVersion &versao : biblia.Versoes())
    nomes << NomeCurto(versao.arquivo);
  return nomes;
}

bool PodeRemover(const QString &nomeCurto) {
  return nomeCurto.compare(u"King James KJV", Qt::CaseInsensitive) != 0 &&
         nomeCurto.compare(u"KJV", Qt::CaseInsensitive) != 0;
}

// The "NEW_" file first: should it stay, the version is still a whole one.
bool RemoveVersao(const AppFolder &app, const QString &nomeCurto) {
  for (const Testamento testamento : {Testamento::Novo, Testamento::Velho})
    if (!RemoveFile(PastaDasBiblias(app) + ArquivoDaVersao(nomeCurto, testamento)))
      return false;
  return true;
}

QUrl BuscaDeBiblias::Endereco(const QString &termo) const {
  // Blanks as %20, and only what would end the value escaped besides.
  const QString valor = QString::fromLatin1(QUrl::toPercentEncoding(termo, "!$'()*,;:@/?"));
  return m_endpoints.Endereco(Endpoint::ListaBiblias, u"/Arquivos/BibleText/biblelist.php?tag=" + valor);
}

std::unique_ptr<WebTask> BuscaDeBiblias::Procura(const QUrl &endereco, Pronto pronto) {
  return std::make_unique<Procurando>(m_web, endereco, std::move(pronto));
}

FilaDeBiblias::FilaDeBiblias(const AppFolder &app, WebClient &web, ImportadorDeBiblias &importador, Ouvinte ouvinte)
    : m_app(app), m_web(web), m_importador(importador), m_ouvinte(std::move(ouvinte)) {}

void FilaDeBiblias::Comeca(const QUrl &lista, const QList<VersaoOferecida> &versoes) {
  Para();
  m_lista = lista;
  m_versoes = versoes;
  m_passo = 0;
  m_trouxe = 0;
  m_faltaram = 0;
  m_roda = true;
  QDir().mkpath(MapStoredPath(PastaDasBiblias(m_app)).text());
  Adiante();
}

void FilaDeBiblias::Para() {
  m_tarefa.reset();
  if (m_roda && m_passo < 2 * m_versoes.size()) // what came and was not looked at yet
    QFile::remove(MapStoredPath(Chegada()).text());
  m_roda = false;
  m_importada.reset();
}

QString FilaDeBiblias::Pasta() const {
  return QDir::cleanPath(MapStoredPath(PastaDasBiblias(m_app)).text());
}

// Under another name until it is known to be a version: the menu lists what is called as one.
QString FilaDeBiblias::Chegada() const {
  return PastaDasBiblias(m_app) + ArquivoDaVersao(Versao().nome, Qual()) + u".novo";
}

void FilaDeBiblias::Adiante() {
  for (; m_passo < 2 * m_versoes.size(); ++m_passo) {
    const QString nome = Versao().nome;
    const bool velho = Qual() == Testamento::Velho;
    if (velho)
      m_importada.reset();
    if (!FileExists(PastaDasBiblias(m_app) + ArquivoDaVersao(nome, Qual()))) {
      m_ouvinte.legenda(u"Downloading: " + nome + (velho ? QStringLiteral(" Old") : QStringLiteral(" New")));
      Busca(Versao(), Qual());
      return;
    }
    const QString frase = velho ? QString(u"there is already: " + nome + u" Old Testament")
                                : QString(u"Already exists: " + nome + u" New Testament");
    m_ouvinte.legenda(frase);
    m_ouvinte.contou(nome, frase);
  }
  Para();
  m_ouvinte.acabou();
}

void FilaDeBiblias::Busca(const VersaoOferecida &versao, Testamento testamento) {
  const QString arquivo = ArquivoDaVersao(versao.nome, testamento);
  m_ouvinte.andou(0, -1);
  if (versao.modulo.isEmpty()) {
    PedidoDeDownload pedido;
    pedido.endereco = EnderecoDoArquivo(m_lista, versao, testamento);
    pedido.arquivo = Chegada();
    pedido.limiteBytes = VersionFileLimit;
    if (!pedido.endereco.isValid()) {
      m_tarefa = ContaDepois([this] { Termina(QObject::tr("its address is not one that can be read")); });
      return;
    }
    m_tarefa = m_web.Download(pedido, m_ouvinte.andou, [this, local = pedido.arquivo](const FimDoDownload &fim) {
      if (fim.inteiro)
        Confere(MapStoredPath(local).text());
      else
        Termina(QObject::tr("it could not be downloaded"));
    });
    return;
  }
  if (m_importada) { // the importer wrote both
    Confere(m_importada->filePath(arquivo));
    return;
  }
  m_importada = std::make_unique<QTemporaryDir>(Pasta() + QStringLiteral("/.import-XXXXXX"));
  m_tarefa = m_importador.Importa(versao.modulo, versao.nome, m_importada->path(), [this, arquivo](bool sim) {
    if (sim)
      Confere(m_importada->filePath(arquivo));
    else
      Termina(QObject::tr("it could not be imported"));
  });
}

// Reading a version takes long enough to be seen on the projection, so it is not done on this thread.
void FilaDeBiblias::Confere(const QString &arquivo) {
  m_tarefa = m_fios.Comeca([this, arquivo, testamento = Qual()](const std::atomic<bool> &,
                                                                const SideThreads::Avisa &) -> SideThreads::Relato {
    const bool serve = EhVersao(ReadVersionFile(arquivo), testamento);
    return [this, arquivo, serve](SideThreads::Ouvintes &) { Conferiu(arquivo, serve); };
  });
}

void FilaDeBiblias::Conferiu(const QString &arquivo, bool serve) {
  const QString lugar = Pasta() + u'/' + ArquivoDaVersao(Versao().nome, Qual());
  // It takes no place that somebody else has taken meanwhile.
  if (serve && QFile::rename(arquivo, lugar)) {
    Termina({});
    return;
  }
  QFile::remove(arquivo);
  Termina(serve         ? QObject::tr("it could not be put into the folder")
          : m_importada ? QObject::tr("the module has no text of it")
                        : QObject::tr("what came is no text of a version, and was removed"));
}

void FilaDeBiblias::Termina(const QString &frase) {
  const QString testamento =
      Qual() == Testamento::Velho ? QStringLiteral("Old Testament") : QStringLiteral("New Testament");
  ++(frase.isEmpty() ? m_trouxe : m_faltaram);
  m_ouvinte.contou(Versao().nome, frase.isEmpty() ? QObject::tr("%1: added").arg(testamento)
                                                  : QString(testamento + QStringLiteral(": ") + frase));
  ++m_passo;
  Adiante();
}

} // namespace tolmira
