#include "foundation/posix/MessageWindow.h"

#include "foundation/ListenerWalk.h"

namespace orlo::posix {

CMessageWindow::CMessageWindow() : queue_(CMessageQueue::ofThisThread()) {
  queue_->addWindow(this);
}

CMessageWindow::~CMessageWindow() {
  {
    const P<CMessageWindow> told(this);
    walkFromLast(destructListeners_, [this](IObjectDestructListener& listener) { listener.onObjectDestruct(this); });
  }
  queue_->removeWindow(this);
}

bool CMessageWindow::post(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
  return queue_->post({this, message, wParam, lParam});
}

void CMessageWindow::onMessage(const CMessage& message) {
  walkFromLast(listeners_, [&](IMessageListener& listener) {
    return listener.onMessage(this, message.message, message.wParam, message.lParam);
  });
}

}  // namespace orlo::posix
