#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace tolmira {

enum class GraphicsBackend { Auto, Software, Gl };

// Decides how pages are drawn and sets the environment that the toolkit and the engine read. To be called once, before
// the application object is made. Auto looks at the GL renderer and takes software drawing where GL would only be
// emulated, which is two to four times slower there. What the user set in the environment stays as it is. Returns
// Software or Gl.
GraphicsBackend ChooseGraphicsBackend(GraphicsBackend wish);

// True for the names of renderers that run on the processor, and for the empty name.
bool RendererIsEmulated(QByteArrayView renderer);

// The name of the GL renderer of the desktop; empty when there is none. Asked in a process of its own, so that nothing
// of GL stays mapped in this one and a driver that crashes takes nothing with it.
QByteArray GlRendererName();

// `flags` with those of `wanted` added whose names it does not hold yet; both separated by blanks.
QByteArray WithFlags(const QByteArray &flags, const QByteArray &wanted);

} // namespace tolmira
