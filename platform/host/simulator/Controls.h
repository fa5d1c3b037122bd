// The base of the simulator's control objects, and their factories. A factory is defined in the file of its class.
#pragma once

#include "host/simulator/Simulator.h"

#include <memory>

namespace host
{

/// The base of a control object. The pipeline is the default one for an object without a pipeline.
template <class Interface> class Control : public Interface
{
public:
    explicit Control(const Pipeline& pipeline = {}) : m_pipeline(pipeline) {}

protected:
    /// A call that does `work(outputs)` and returns 1.
    template <class Arguments, class Work> int m_Succeed(Op operation, const Arguments& arguments, Work work)
    {
        return m_tv.Call(operation, arguments, [&](Outputs& outputs) {
            work(outputs);
            return 1;
        });
    }
    /// A call that returns 1 and has no effect that can be read back.
    template <class... Arguments> int m_Accept(Op operation, const Arguments&... arguments)
    {
        return m_Succeed(operation, With(arguments...), [](Outputs&) {});
    }

    Simulator& m_tv = Simulator::Instance();
    const Pipeline m_pipeline;
};

/// The work of a factory: creates an Object for that profile and screen id, or without a pipeline if there are none.
template <class Object, class Interface, class... ProfileAndScreenId>
int Create(Op factory, Interface** written, ProfileAndScreenId... arguments)
{
    Simulator& simulator = Simulator::Instance();
    return simulator.Call(factory, With(arguments...), [&](Outputs&) {
        const Pipeline pipeline{arguments...};
        auto object = std::make_unique<Object>(pipeline);
        const ITvsSession* key = *written = object.get();
        simulator.controls[key] = {std::move(object), factory,
                                   sizeof...(arguments) == 0 ? std::nullopt : std::optional(pipeline)};
        return 0;
    });
}

} // namespace host

// The factory of host::NAME, with and without a pipeline.
#define PIPELINE_FACTORY(NAME)                                                                                         \
    int TVServiceAPI::Create##NAME(EProfile profile, int screenId, I##NAME** object)                                   \
    {                                                                                                                  \
        return host::Create<host::NAME>(host::Op::TVServiceAPI_Create##NAME, object, profile, screenId);               \
    }
#define FACTORY(NAME)                                                                                                  \
    int TVServiceAPI::Create##NAME(I##NAME** object)                                                                   \
    {                                                                                                                  \
        return host::Create<host::NAME>(host::Op::TVServiceAPI_Create##NAME, object);                                  \
    }
