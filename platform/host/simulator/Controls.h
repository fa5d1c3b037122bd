// The simulator's control objects: a factory for each interface.
#pragma once

#include "host/simulator/Simulator.h"

#include <memory>

namespace host
{

std::unique_ptr<ISourceControl> MakeSourceControl(const Pipeline& pipeline);
std::unique_ptr<IAVControl> MakeAVControl(const Pipeline& pipeline);
std::unique_ptr<IVideoControl> MakeVideoControl(const Pipeline& pipeline);
std::unique_ptr<IZoomControl> MakeZoomControl(const Pipeline& pipeline);
std::unique_ptr<ITunerControl> MakeTunerControl(const Pipeline& pipeline);
std::unique_ptr<IDataControl> MakeDataControl(const Pipeline& pipeline);
std::unique_ptr<IReferenceCount> MakeReferenceCount(const Pipeline& pipeline);
std::unique_ptr<IPipelineUtility> MakePipelineUtility(const Pipeline& pipeline);
std::unique_ptr<IServiceNavigation> MakeServiceNavigation(const Pipeline& pipeline);
std::unique_ptr<IService> MakeService();
std::unique_ptr<IServiceGuide> MakeServiceGuide();
std::unique_ptr<IScanControl> MakeScanControl();

/// What the controls have in common: the television, and the pipeline of those that have one.
template <class Interface> class Control : public Interface
{
public:
    explicit Control(const Pipeline& pipeline = {}) : m_pipeline(pipeline) {}

protected:
    /// A call that succeeds and changes nothing that can be asked for.
    template <class... Arguments> int Accept(Op operation, const Arguments&... arguments)
    {
        return m_tv.Call(operation, With(arguments...), [](Outputs&) { return 1; });
    }

    Simulator& m_tv = Simulator::Instance();
    const Pipeline m_pipeline;
};

} // namespace host
