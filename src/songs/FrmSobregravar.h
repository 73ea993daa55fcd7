#pragma once

#include <QDialog>
#include <QString>
#include <functional>

namespace tolmira {

// What becomes of a file whose name is taken. One of the three words below.
using PerguntaSobregravar = std::function<QString(const QString &fileName)>;
inline const QString ManterOsDois = QStringLiteral("ManterOsDois"); // the new one gets another name
inline const QString Cancelar = QStringLiteral("Cancelar");
inline const QString Sobregravar = QStringLiteral("Sobregravar");

// The question itself. Closing it is "Cancelar".
class FrmSobregravar : public QDialog {
  Q_OBJECT

public:
  FrmSobregravar(const QString &fileName, QWidget *parent);
  const QString &Resposta() const { return m_answer; }

  // The question as a modal box over `parent`.
  static QString Pergunta(const QString &fileName, QWidget *parent);

private:
  QString m_answer = Cancelar;
};

} // namespace tolmira
