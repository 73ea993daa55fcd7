#include "slides/FrmListaSlides.h"

#include "slides/slide_folder.h"

namespace tolmira {

namespace {

constexpr int Kind = 5; // of an agenda entry

DocumentList::Kind Slides(const SlideDoors &doors, const EstadoSlides &estado, FrmListaSlides::Editor &editor) {
  const AppFolder app = doors.store.App();
  const QString semSelecao = QStringLiteral("Select the slide you want to edit from the list.");
  DocumentList::Kind slides;
  slides.name = QStringLiteral("FrmListaSlides");
  slides.title = QObject::tr("Slides");
  slides.number = Kind;
  slides.none = QObject::tr("There are no slides yet.");
  slides.one = QObject::tr("1 document");
  slides.many = QObject::tr("%1 documents");
  slides.refusal = QStringLiteral("First, close the slide editing screen.");
  slides.noSelection = {semSelecao, semSelecao, semSelecao};
  slides.names = [app] { return ListaDeSlides(app); };
  slides.path = [app](const QString &nome) { return CaminhoDoSlide(app, nome); };
  slides.target = [](const QString &nome) -> QString { return nome + u".sld"; };
  slides.editorOpen = [&estado] { return estado.editorAberto == u"true"; };
  slides.create = std::move(editor.novo);
  slides.edit = std::move(editor.edita);
  if (doors.importa)
    slides.import = std::move(editor.importa);
  return slides;
}

} // namespace

FrmListaSlides::FrmListaSlides(const SlideDoors &doors, const EstadoSlides &estado, Editor editor)
    : DocumentList({doors.console, doors.posicoes, doors.prompt, doors.tituloDaAgenda, doors.dono},
                   Slides(doors, estado, editor)) {}

} // namespace tolmira
