#include "slides/show_editor.h"

#include "foundation/file_name.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"

#include <utility>

namespace tolmira {

namespace {

const QString TituloDaCaixa = QStringLiteral("Tolmira");
const QString SemNome = QStringLiteral("Enter a name for the slide");
constexpr int Substitui = 0; // position of the answer in the question

// Why no file can have this name; empty when one can.
QString Problema(const QString &nome) {
  if (const QStringList proibidos = ForbiddenInFileName(nome); !proibidos.isEmpty())
    return QStringLiteral("The name of a slide show becomes the name of a file, which cannot hold  ") +
           proibidos.join(QStringLiteral("  "));
  return IsTooLongForFileName(nome + u".sw") ? QStringLiteral("The name is too long for a file.") : QString();
}

} // namespace

bool ShowEditor::CarregarSlide(const QString &path) {
  // What cannot be read whole could not be written back as it was.
  if (FileExists(path)) {
    const FileContent content = ReadFileContent(path);
    if (!content.complete || content.bytes.contains('\0'))
      return false;
  }
  const SlideShowDocument show = LeSlideShow(path);
  m_path = path;
  TxtNome = FileNameWithoutExtension(path, QStringLiteral("."));
  Tempo = show.Tempo;
  TempoIntevalo = show.TempoIntevalo;
  TempoIntevaloSaida = show.TempoIntevaloSaida;
  audio = AudioParaACaixa(show.ArquivodeAudio);
  textoInicio = TextoParaACaixa(show.textoInicio);
  textoFim = TextoParaACaixa(show.textoFim);
  m_imagens = show.imagens;
  m_pendente = AcaoDoShow::Nenhuma;
  m_gravado = Documento();
  return true;
}

QString ShowEditor::Titulo() const {
  const QString nome = TxtNome.trimmed();
  return nome.isEmpty() ? QStringLiteral("New slide show") : QString(QStringLiteral("Slide show: ") + nome);
}

void ShowEditor::Adiciona(const QStringList &paths) { m_imagens += paths; }

bool ShowEditor::Alterado() const { return Documento() != m_gravado; }

SlideShowDocument ShowEditor::Documento() const {
  SlideShowDocument show;
  show.Titulo = TxtNome;
  show.Tempo = Tempo;
  show.TempoIntevalo = TempoIntevalo;
  show.TempoIntevaloSaida = TempoIntevaloSaida;
  show.ArquivodeAudio = AudioParaOShow(audio.trimmed());
  show.textoInicio = TextoParaOShow(textoInicio);
  show.textoFim = TextoParaOShow(textoFim);
  show.imagens = m_imagens;
  return show;
}

bool ShowEditor::Pede(AcaoDoShow acao) {
  if (acao != AcaoDoShow::ExibirAgora && TxtNome.trimmed().isEmpty()) {
    Diz(SemNome);
    return false;
  }
  m_pendente = acao;
  return true;
}

PassoDoEditor ShowEditor::Recebe(const RespostaDaGaleria &resposta) {
  PassoDoEditor passo;
  if (resposta.verbo == RespostaDaGaleria::Outro) {
    Diz(QStringLiteral("There are still no items to display in this presentation."));
    return passo;
  }
  m_imagens = resposta.imagens;
  if (resposta.verbo != RespostaDaGaleria::Lista)
    return passo;
  const AcaoDoShow acao = std::exchange(m_pendente, AcaoDoShow::Nenhuma);
  if (acao == AcaoDoShow::Nenhuma)
    return passo;
  if (acao == AcaoDoShow::ExibirAgora) {
    passo.exibe = passo.gravado = GravaSlideShow(acao);
    return passo;
  }
  const QString gravado = passo.gravado = GravaSlideShow(AcaoDoShow::ApenasSalvar);
  if (gravado.isEmpty() || !FileExists(gravado))
    return passo;
  passo.fecha = acao == AcaoDoShow::SalvarESair || acao == AcaoDoShow::AdicionarNaAgenda;
  if (acao == AcaoDoShow::AdicionarNaAgenda)
    passo.adiciona = gravado;
  return passo;
}

QString ShowEditor::CaminhoParaGravar(AcaoDoShow acao) {
  const QString nome = TidyFileName(TxtNome);
  if (nome.isEmpty()) {
    if (acao == AcaoDoShow::ExibirAgora)
      return CaminhoDoShowSemNome();
    Diz(SemNome);
    return {};
  }
  if (const QString problema = Problema(nome); !problema.isEmpty()) {
    Diz(problema);
    return {};
  }
  const QString path = CaminhoDoSlideShow(m_app, nome);
  const bool doMesmo = !m_path.isEmpty() && MapStoredPath(path).text() == MapStoredPath(m_path).text();
  if (!doMesmo && FileExists(path) &&
      m_prompt.Ask(TituloDaCaixa, QStringLiteral("There is a slide show named '%1' already. Replace it?").arg(nome),
                   {QStringLiteral("Replace"), QStringLiteral("Cancel")}) != Substitui)
    return {};
  return path;
}

QString ShowEditor::GravaSlideShow(AcaoDoShow acao) {
  if (m_imagens.isEmpty() && acao != AcaoDoShow::ApenasSalvar) {
    Diz(QStringLiteral("There are no items listed for display."));
    return {};
  }
  const QString path = CaminhoParaGravar(acao);
  if (path.isEmpty())
    return {};
  SlideShowDocument show = Documento();
  if (!FileExists(audio.trimmed()))
    show.ArquivodeAudio.clear();
  if (!EscreveSlideShow(path, show)) {
    Diz(QStringLiteral("The slide show could not be saved. Nothing was changed on the disk."));
    return {};
  }
  if (!TidyFileName(TxtNome).isEmpty()) {
    m_path = path;
    m_gravado = Documento();
  }
  return path;
}

void ShowEditor::Diz(const QString &texto) { m_prompt.Message(MessageKind::Information, TituloDaCaixa, texto); }

} // namespace tolmira
