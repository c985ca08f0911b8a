#pragma once

#include <exception>
#include <new>
#include <string>

#include <qpdf/QPDFExc.hh>

#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

/// Runs what may throw for what the file holds. If it does, the reason becomes the problem, and the answer is
/// false.
template <typename Function>
bool GuardLookUp(std::string& problem, Function function)
{
    try {
        function();
        return true;
    } catch (const QPDFExc& failure) {
        problem = DescribeProblem(failure);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& failure) {
        problem = failure.what();
    }
    return false;
}

} // namespace OrvPdf
