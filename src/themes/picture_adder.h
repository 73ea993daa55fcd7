#pragma once

#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "themes/picture_folder.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QThreadPool>

namespace tolmira {

// Copies pictures into the gallery's folder, one after the other, and makes their small copies. Reading and writing are
// done beside the interface thread; questions and messages come on it, in the order of the files.
class PictureAdder : public QObject {
  Q_OBJECT

public:
  PictureAdder(const AppFolder &app, UserPrompt &prompt, QObject *parent = nullptr);
  ~PictureAdder() override; // waits for the copy under way

  // Real paths, as a file dialogue gives them; joins what is still waiting.
  void Adiciona(const QStringList &paths);
  void Para(); // what is waiting is given up; a copy under way is finished
  bool Trabalhando() const { return m_trabalhando; }

signals:
  void Andou(int feitos, int total);
  void Terminou(const QStringList &nomes); // the bare names of those that arrived; last, after all messages

private:
  void Proximo();
  void Examinou(const QString &path, const NomeDeImagem &nome);
  void Copiou(const QString &path, const NomeDeImagem &nome, Copia copia);
  void Acaba();
  void Diz(MessageKind kind, const QString &text);

  const AppFolder m_app;
  UserPrompt &m_prompt;
  QThreadPool m_pool;
  QStringList m_fila;
  QStringList m_chegaram;
  QStringList m_convertidas;
  QStringList m_recusadas; // no pictures
  QStringList m_perdidas;  // could not be written
  int m_feitos = 0;
  int m_total = 0;
  bool m_trabalhando = false;
};

} // namespace tolmira
