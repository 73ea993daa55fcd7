#include "slides/FrmListaSlidesShow.h"

#include "slides/show_document.h"
#include "slides/slide_folder.h"

namespace tolmira {

namespace {

DocumentList::Kind Shows(const ShowDoors &doors, FrmListaSlidesShow::Editor &editor) {
  const AppFolder app = doors.app;
  DocumentList::Kind shows;
  shows.name = QStringLiteral("FrmListaSlidesShow");
  shows.title = QObject::tr("Slide shows");
  shows.number = TipoSlideShow;
  shows.none = QObject::tr("There are no slide shows yet.");
  shows.one = QObject::tr("1 slide show");
  shows.many = QObject::tr("%1 slide shows");
  shows.refusal = QStringLiteral("First, close the slideshow editing screen.");
  shows.noSelection = {QStringLiteral("Select the item you want to add to the agenda."),
                       QStringLiteral("Select the Slide Show you want to edit from the list."),
                       QStringLiteral("Select the item you want to delete.")};
  shows.keepsFocus = false; // the show's remote has it then
  shows.names = [app] { return ListaDeSlideShows(app); };
  shows.path = shows.target = [app](const QString &nome) { return CaminhoDoSlideShow(app, nome); };
  shows.editorOpen = std::move(editor.aberto);
  shows.create = std::move(editor.novo);
  shows.edit = std::move(editor.edita);
  return shows;
}

} // namespace

FrmListaSlidesShow::FrmListaSlidesShow(const ShowDoors &doors, Editor editor)
    : DocumentList({doors.console, doors.posicoes, doors.prompt, doors.tituloDaAgenda, doors.dono},
                   Shows(doors, editor)) {}

} // namespace tolmira
