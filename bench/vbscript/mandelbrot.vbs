Option Explicit

Function Inside(size, limit)
    Dim x, y, n, cr, ci, zr, zi, zr2, zi2, count
    count = 0
    For y = 0 To size - 1
        ci = 2.0 * y / size - 1.0
        For x = 0 To size - 1
            cr = 2.0 * x / size - 1.5
            zr = 0.0
            zi = 0.0
            zr2 = 0.0
            zi2 = 0.0
            n = 0
            Do While n < limit And zr2 + zi2 < 4.0
                zi = 2.0 * zr * zi + ci
                zr = zr2 - zi2 + cr
                zr2 = zr * zr
                zi2 = zi * zi
                n = n + 1
            Loop
            If n = limit Then count = count + 1
        Next
    Next
    Inside = count
End Function

WScript.Echo Inside(300, 100)
