#pragma once

#include <QWidget>
#include <memory>

namespace tolmira {

// A page that the program made from what the web gave: texts, links and pictures that lie on the web. It belongs to
// nobody: it has no scripts of its own, reaches no files, goes nowhere, keeps nothing, and loads nothing but pictures
// of the web. Its links only tell that they were chosen, by the mouse, or by the arrow keys or Tab and Enter.
class WebResultView : public QWidget {
  Q_OBJECT

public:
  explicit WebResultView(QWidget *parent); // drawn in the colours of its palette
  ~WebResultView() override;

  // Pictures of this machine's own network are loaded only where the page came from there as well: nobody outside is
  // to make the program ask a router or a printer for something.
  enum class RedePropria { Fechada, Aberta };
  // HTML whose foreign parts are escaped. The first call starts the engine. False when it cannot be started, or when
  // the text is longer than a page may be.
  bool Mostra(const QString &html, RedePropria rede = RedePropria::Fechada);
  static constexpr qsizetype MaiorPagina = 2'000'000; // bytes, as an address writes them
  void Esvazia();                                     // ends the engine's part; not from inside an event of the page
  bool Vazia() const;

signals:
  void Clicou(const QString &id); // of the link, or of what lies in it
  void Pronta();                  // the page stands, its pictures may still come

protected:
  void focusInEvent(QFocusEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;
  bool eventFilter(QObject *watched, QEvent *event) override;

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
