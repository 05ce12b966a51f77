#include "backend/handler/VantraHandler.h"

#include "backend/handler/VantraError.h"
#include "foundation/Singleton.h"
#include "foundation/String.h"
#include "foundation/wxutil/WXError.h"
#include "foundation/wxutil/WXString.h"

namespace vantra::wx::handler {

CVantraHandler::CVantraHandler() {
  const orlo::String name = orlo::getSharedLibraryFileName("vantraplugin");
  module_ = orlo::loadSharedLibrary(name);
  if (!module_) throw wxutil::CWXError("Could not load " + wxutil::toWxString(name));
}

template <class Function>
Function CVantraHandler::Find(const char* name) const {
  void* const function = module_->findFunction(name);
  if (!function)
    throw wxutil::CWXError("Could not find function in dll: Functionname: " + wxString(name, wxConvISO8859_1));
  return reinterpret_cast<Function>(function);
}

orlo::P<IMessage> CVantraHandler::CreateMessage(std::int32_t kind) {
  return Find<Vantra_createMessageFunction>("Vantra_createMessage")(kind);
}

orlo::P<IContext> CVantraHandler::CreateContext(std::int32_t kind) {
  orlo::P<IContext> context = Find<Vantra_createContextFunction>("Vantra_createContext")(nullptr, kind);
  if (context) return context;
  orlo::P<IError> error;
  error.attach(Find<Vantra_getLastErrorFunction>("Vantra_getLastError")());
  throw CVantraError(error ? error->getCode() : 0);
}

orlo::P<IAnimationExtractor> CVantraHandler::GetAnimationExtractor(const CExtractorParams& params, IContext* context,
                                                                   std::int32_t firstFrame, std::int32_t flag,
                                                                   std::int32_t reserved) {
  return Find<Vantra_getAnimationExtractorFunction>("Vantra_getAnimationExtractor")(&params, context, firstFrame, flag,
                                                                                    reserved);
}

orlo::P<CVantraHandler> GetVantraHandler() {
  static constinit orlo::TSingleton<CVantraHandler> handler;
  return handler.get([] { return orlo::P<CVantraHandler>(orlo::makeObject<CVantraHandler>()); });
}

}  // namespace vantra::wx::handler
