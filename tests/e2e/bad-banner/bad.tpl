VRK Filter Template File 
Title
