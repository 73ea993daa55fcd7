#pragma once

#include <QString>

namespace tolmira::paginas {

// How the program and its drawer of pages, `tolmira-pages`, talk. The drawer is a process of its own because a PDF from
// elsewhere may be made to break whoever reads it; what it says is therefore checked and not believed.
//
//     tolmira-pages FILE FOLDER WIDTHxHEIGHT
//
// Standard input: the password in UTF-8, up to its end; nothing for none. Standard output: lines of ASCII that end in
// LF.
//
//     pages N        first, once: the document has N pages
//     page I NAME    page I, from 1 and in order, lies whole in FOLDER under NAME ("page-I.png" or "page-I.jpg")
//     done           last: there were N of them
//     failed WHY     last, in the place of "done"; WHY is one of the words below
//
// Every picture is WIDTH by HEIGHT pixels. The exit code is 0 behind "done" and 1 behind "failed". Standard error is
// for people. Nothing is written but those pictures.

inline constexpr int MaisPaginas = 2000;
inline constexpr int MaiorLado = 8192;  // px, of a picture
inline constexpr int MaiorLinha = 64;   // bytes, LF included
inline constexpr int MaiorSenha = 1024; // bytes

inline const QString FaltaSenha = QStringLiteral("password"); // none or the wrong one was given
inline const QString Quebrado = QStringLiteral("broken");     // no PDF, or one that leads nowhere
inline const QString Vazio = QStringLiteral("empty");         // without pages
inline const QString Demais = QStringLiteral("pages");        // more than MaisPaginas
inline const QString Disco = QStringLiteral("disk");          // a picture could not be written

} // namespace tolmira::paginas
