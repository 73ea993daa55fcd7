#pragma once

#include "display/ui/page_profile.h"

#include <QUrl>
#include <QWidget>
#include <functional>
#include <memory>

class QWebEnginePage;
class QWebEngineView;

namespace tolmira {

// The site itself, for the operator to answer what it asks before it shows videos: whether it may keep cookies, or who
// he is. It goes where `pode` says and nowhere else, makes no sound, and has no rights on this computer.
class SiteView : public QWidget {
  Q_OBJECT

public:
  SiteView(PageProfile profile, std::function<bool(const QUrl &url)> pode, QWidget *parent);
  ~SiteView() override;

  void Abre(const QUrl &url);
  void Fecha(); // and the page ends
  void Volta();

signals:
  void Endereco(const QUrl &url); // the page that it shows now
  void Recusado(const QUrl &url); // the page wanted to go there
  void Falhou();                  // the page could not be loaded

private:
  PageProfile m_profile;
  std::function<bool(const QUrl &url)> m_pode;
  std::unique_ptr<QWebEnginePage> m_page;
  QUrl m_url;
  bool m_recusou = false;
  QWebEngineView *m_view = nullptr;
};

} // namespace tolmira
