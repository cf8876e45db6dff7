Option Explicit

Class Account
    Private balance_

    Private Sub Class_Initialize
        balance_ = 0
    End Sub

    Public Property Get Balance
        Balance = balance_
    End Property

    Public Property Let Balance(amount)
        balance_ = amount
    End Property

    Public Sub Deposit(amount)
        balance_ = balance_ + amount
    End Sub
End Class

Sub Work(rounds)
    Dim account, i
    Set account = New Account
    For i = 1 To rounds
        account.Deposit i Mod 10
        If account.Balance > 1000000 Then account.Balance = account.Balance - 1000000
    Next
    WScript.Echo account.Balance
End Sub

Work 2000000
