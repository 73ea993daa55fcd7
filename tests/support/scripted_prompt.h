#pragma once

#include "foundation/seams.h"

#include <QList>
#include <functional>
#include <utility>

namespace tolmira::testing {

// Records every box and answers from lists; with no answer left, the user closes the box or gives up.
class ScriptedPrompt : public UserPrompt {
public:
  struct Shown {
    MessageKind kind;
    QString title;
    QString text;
    QStringList buttons; // empty for a plain message
  };
  struct FileQuestion {
    QString title;
    QString folder;
    QString filter;
  };

  void Message(MessageKind kind, const QString &title, const QString &text) override {
    shown.append({kind, title, text, {}});
    Stand();
  }

  int Ask(const QString &title, const QString &text, const QStringList &buttons) override {
    shown.append({MessageKind::Question, title, text, buttons});
    Stand();
    return answers.isEmpty() ? -1 : answers.takeFirst();
  }

  std::optional<QString> AskText(const QString &title, const QString &text, const QString &now) override {
    textQuestions.append({title, text, now});
    return typed.isEmpty() ? std::nullopt : std::optional<QString>(typed.takeFirst());
  }

  QString OpenFile(const QString &title, const QString &folder, const QString &filter) override {
    fileQuestions.append({title, folder, filter});
    return files.isEmpty() ? QString() : files.takeFirst();
  }

  QStringList OpenFiles(const QString &title, const QString &folder, const QString &filter) override {
    fileQuestions.append({title, folder, filter});
    return std::exchange(files, {});
  }

  std::optional<qint32> PickColour(const QString &title, qint32 now) override {
    colourQuestions.append({title, now});
    return colours.isEmpty() ? std::nullopt : std::optional<qint32>(colours.takeFirst());
  }

  // The texts of the boxes since the last call.
  QStringList TakeTexts() {
    QStringList texts;
    for (const Shown &box : std::exchange(shown, {}))
      texts.append(box.text);
    return texts;
  }

  QList<int> answers;
  std::function<void()> whileAsking; // once, as long as the next box with a text stands open
  QStringList files;
  QStringList typed; // into the boxes for a line of text
  QList<qint32> colours;
  QList<Shown> shown;
  QList<FileQuestion> fileQuestions;
  QList<QStringList> textQuestions; // title, text, what stood in the box
  QList<QPair<QString, qint32>> colourQuestions;

private:
  void Stand() {
    if (const auto act = std::exchange(whileAsking, nullptr))
      act();
  }
};

} // namespace tolmira::testing
