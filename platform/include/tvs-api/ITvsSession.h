#pragma once

/// A control object of the TV service. Created by a factory of TVServiceAPI, released only with TVServiceAPI::Destroy.
class ITvsSession
{
public:
    virtual ~ITvsSession() = default;
};
