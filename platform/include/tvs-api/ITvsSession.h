#pragma once

/// A control object of the TV service. Made by a factory of TVServiceAPI, released with TVServiceAPI::Destroy
/// and nothing else.
class ITvsSession
{
public:
    virtual ~ITvsSession() = default;
};
